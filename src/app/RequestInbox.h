// SPDX-License-Identifier: MIT
#pragma once

#include "app/UserRequest.h"

#include <functional>
#include <vector>

namespace zeph {

/// Keeps what the user asks of the program until it has started far enough to do it. Main thread
/// only.
class RequestInbox {
public:
    enum class Start {
        byUser,
        byRequest, ///< the bus started the program, to hand it a request
    };

    explicit RequestInbox(Start start) : m_isStartRequest(start == Start::byRequest) {}

    /// Of a program that the bus has started, the first request to come forward is the start
    /// itself, and asks for nothing more.
    void take(const ApplicationRequest &request);

    /// Whether it is known what the program was started for.
    bool isStartKnown() const { return !m_isStartRequest; }

    /// Whether it was started for nothing but its end: the user asked a program to quit that did
    /// not run.
    bool isStartedToQuit() const { return m_isStartedToQuit; }

    /// Hands over what came so far, and everything from now on.
    void deliverTo(std::function<void(UserRequest)> handler);

private:
    bool m_isStartRequest; // the next request is that
    bool m_isStartedToQuit = false;
    std::vector<UserRequest> m_waiting;
    std::function<void(UserRequest)> m_handler;
};

} // namespace zeph
