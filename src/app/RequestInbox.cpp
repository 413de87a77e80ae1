// SPDX-License-Identifier: MIT
#include "app/RequestInbox.h"

#include "adapters/bus/ApplicationRequest.h"

#include <utility>

namespace zeph {

void RequestInbox::take(const ApplicationRequest &request) {
    const bool isStart = std::exchange(m_isStartRequest, false);
    if (isStart && request.kind == ApplicationRequest::Kind::activate) {
        return;
    }
    const auto wanted = userRequestOf(request);
    if (!wanted) {
        return;
    }
    m_isStartedToQuit = m_isStartedToQuit || (isStart && wanted == UserRequest::quit);
    if (m_handler) {
        m_handler(*wanted);
    } else {
        m_waiting.push_back(*wanted);
    }
}

void RequestInbox::deliverTo(std::function<void(UserRequest)> handler) {
    m_handler = std::move(handler);
    m_isStartRequest = false; // it would have come by now
    for (const UserRequest request : std::exchange(m_waiting, {})) {
        m_handler(request);
    }
}

} // namespace zeph
