// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11Session.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

X11Session::Opened X11Session::open(const Surroundings &surroundings, const QByteArray &display) {
    auto connection = X11Connection::open(display);
    if (!connection) {
        return {nullptr, u"there is no X display to draw on"_s};
    }
    auto windowServer = X11WindowServer::create(*connection, offerOfEnvironment());
    if (!windowServer) {
        return {nullptr, u"the X server keeps pixels in no form that can be painted"_s};
    }
    return {std::unique_ptr<X11Session>(
                new X11Session(std::move(connection), std::move(windowServer), surroundings)),
            {}};
}

X11Session::X11Session(std::unique_ptr<X11Connection> connection,
                       std::unique_ptr<X11WindowServer> windowServer,
                       const Surroundings &surroundings)
    : m_connection(std::move(connection)),
      m_windowServer(std::move(windowServer)),
      m_screens(*m_connection),
      m_workspace(*m_connection, surroundings.entries),
      m_inputEvents(*m_connection, m_screens, surroundings.inputConsent),
      m_virtualDesktops(*m_connection) {
    m_windowServer->settle();
}

} // namespace zeph
