// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/secret/SecretHandles.h"

#include <chrono>
#include <functional>

namespace zeph {

/// Turns the asynchronous calls of libsecret into blocking ones on a main context of their own, so
/// that they can be given up at any time. One thread enters it and makes the calls.
class SecretLoop {
public:
    /// Starts a call, which hands its result to the callback with that data.
    using Start = std::function<void(GCancellable *, GAsyncReadyCallback, gpointer)>;

    /// A call without a prompt that is not answered within `answerLimit` is given up.
    explicit SecretLoop(std::chrono::milliseconds answerLimit);
    ~SecretLoop();
    SecretLoop(const SecretLoop &) = delete;
    SecretLoop &operator=(const SecretLoop &) = delete;

    /// Makes this the calling thread's loop, until `leave`.
    void enter();
    void leave();

    /// The result of the call, absent when the call was given up. One that a person may have to
    /// answer has no limit, and can't be ended either, only left.
    SecretPtr<GAsyncResult> await(const Start &start, bool mayPrompt = false);

    /// Waits for something to happen and lets it.
    void turn() { g_main_context_iteration(m_context.get(), TRUE); }

    /// True when a call was given up for its length since the last time of asking.
    bool takeTooLate();

    /// Ends a `turn` that waits. Any thread.
    void wake() { g_main_context_wakeup(m_context.get()); }

    /// Gives up the call under way, and from now on every other at once. Any thread.
    void cancel();
    bool isCancelled() const { return m_isCancelled; }

private:
    void giveUp();
    void startTimer(std::chrono::milliseconds delay, GSourceFunc fired);

    SecretPtr<GMainContext> m_context;
    std::chrono::milliseconds m_answerLimit;
    SecretPtr<GCancellable> m_current; // of the call under way, if it can be ended
    SecretPtr<GSource> m_timer;        // the limit of that call, then the grace of its end
    bool m_isTooLate = false;
    bool m_isCancelled = false;
    bool m_isAbandoned = false; // the call is not waited for any more
};

} // namespace zeph
