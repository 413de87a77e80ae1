// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11EventListener.h"

#include "adapters/session/x11/X11Connection.h"

namespace zeph {

X11EventListener::X11EventListener(X11Connection &connection) : m_connection(connection) {
    m_connection.addListener(*this);
}

X11EventListener::~X11EventListener() {
    m_connection.removeListener(*this);
}

} // namespace zeph
