// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChangePublisher.h"
#include "ports/Port.h"

#include <functional>

namespace zeph {

/// The numbers are part of the stored state; only `granted` lets anything be read.
enum class ConsentState { notDetermined = 0, restricted = 1, denied = 2, granted = 3 };

/// The user's answer to one question that this system has no permission of its own for. It is
/// given and withdrawn while the program runs. Main thread only.
class Consent : public Port {
public:
    virtual ConsentState state() const = 0;

    /// Keeps the answer for this and all later starts, and tells it when it is another one.
    virtual void set(ConsentState state) = 0;

    /// Calls `handler` after every change of the state, until the subscription ends.
    [[nodiscard]] virtual Subscription subscribe(std::function<void()> handler) = 0;

    bool isGranted() const { return state() == ConsentState::granted; }
};

} // namespace zeph
