// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11Display.h"

#include <xcb/xcb.h>

namespace zeph {

X11Display::X11Display() : m_connection(xcb_connect(nullptr, nullptr)) {}

X11Display::~X11Display() {
    xcb_disconnect(m_connection);
}

bool X11Display::isReachable() const {
    return xcb_connection_has_error(m_connection) == 0;
}

} // namespace zeph
