// SPDX-License-Identifier: MIT
#pragma once

#include <xcb/xcb.h>

namespace zeph {

/// Has the server work for this connection alone while it lives, so that nothing changes between
/// what is asked and what is done. For a few requests only: everybody else waits, also whoever
/// wants to connect.
class X11ServerGrab {
public:
    explicit X11ServerGrab(xcb_connection_t *connection) : m_connection(connection) {
        xcb_grab_server(m_connection);
    }
    ~X11ServerGrab() {
        xcb_ungrab_server(m_connection);
        xcb_flush(m_connection);
    }
    X11ServerGrab(const X11ServerGrab &) = delete;
    X11ServerGrab &operator=(const X11ServerGrab &) = delete;

private:
    xcb_connection_t *m_connection;
};

} // namespace zeph
