// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChangePublisher.h"
#include "ports/Port.h"

#include <functional>

namespace zeph {

/// How the user wants windows to look, as far as the desktop tells. Main thread only; nothing here
/// waits.
class DesktopAppearance : public Port {
public:
    enum class Scheme {
        unknown, ///< no preference is told: the toolkit's palette decides
        dark,
        light,
    };

    virtual Scheme scheme() const = 0;
    virtual bool wantsHighContrast() const = 0;
    virtual bool wantsMotion() const = 0;

    /// Calls `handler` after every change, until the subscription ends.
    [[nodiscard]] virtual Subscription subscribe(std::function<void()> handler) = 0;
};

} // namespace zeph
