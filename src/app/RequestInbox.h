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

    /// Hands over what came so far, and everything from now on.
    void deliverTo(std::function<void(UserRequest)> handler);

private:
    bool m_isStartRequest;
    std::vector<UserRequest> m_waiting;
    std::function<void(UserRequest)> m_handler;
};

} // namespace zeph
