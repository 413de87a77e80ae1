// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChangePublisher.h"
#include "ports/Port.h"

#include <QString>

#include <functional>

namespace zeph {

/// The desktop's own wallpaper, where one of ours can take its place so that icons lie above it.
/// The user decides whether it does. Main thread only.
class DesktopWallpaper : public Port {
public:
    virtual bool isChosen() const = 0;

    /// Keeps the choice for this and all later starts and has the desktop follow: it shows ours, or
    /// again what each of its displays showed before.
    virtual void choose(bool isOurs) = 0;

    /// Why ours is not shown though it was chosen, in words for people and without a full stop;
    /// empty while all is well.
    virtual QString problem() const = 0;

    /// Whether ours was chosen and the user has given all displays another one since, as far as
    /// was seen; those stay.
    virtual bool isReplaced() const = 0;

    /// Finds out anew what the displays show, and tells of it.
    virtual void look() = 0;

    /// Calls `handler` after the choice, the problem or `isReplaced` changed, until the
    /// subscription ends.
    [[nodiscard]] virtual Subscription subscribe(std::function<void()> handler) = 0;
};

} // namespace zeph
