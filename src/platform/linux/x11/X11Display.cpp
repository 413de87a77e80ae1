// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11Display.h"

#include <xcb/xcb.h>

namespace zeph::X11Display {

bool isReachable() {
    xcb_connection_t *connection = xcb_connect(nullptr, nullptr);
    const bool reached = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return reached;
}

} // namespace zeph::X11Display
