// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/bus/SingleInstance.h"

#include <chrono>
#include <memory>
#include <optional>

namespace zeph {

class RequestInbox;

/// What one start of the program is for, beside the other starts of the session. Waits in loops of
/// its own, for before there is anything on the screen. Main thread only.
class StartClaim {
public:
    /// For how long the start is held up at most.
    struct Patience {
        /// A bus that is well answers within milliseconds.
        std::chrono::milliseconds role{500};
        /// A request that starts the program comes right after its name is taken.
        std::chrono::milliseconds request{100};
    };

    /// Both outlive this; `requests` takes what `instance` is asked.
    StartClaim(SingleInstance &instance, const RequestInbox &requests, Patience patience);
    StartClaim(SingleInstance &instance, const RequestInbox &requests)
        : StartClaim(instance, requests, Patience()) {}

    /// Tells a running program that it was started again, or takes its place when it is just
    /// ending. False where this start is one too many, or was asked for nothing but the end. A bus
    /// that takes its time does not hold the wallpaper up: then the program quits once it is known
    /// to be one too many.
    bool isToRun();

    /// The same after all, where another process turned out to have the user's data before the bus
    /// answered. Takes 2 s at most. False when no other program could be told.
    bool callRunning();

private:
    void claim();
    void settle();
    void awaitRequest() const;

    struct Answer;

    SingleInstance &m_instance;
    const RequestInbox &m_requests;
    Patience m_patience;
    std::shared_ptr<Answer> m_answer; // the bus may give it after this has ended
};

} // namespace zeph
