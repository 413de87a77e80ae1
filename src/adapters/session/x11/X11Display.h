// SPDX-License-Identifier: MIT
#pragma once

struct xcb_connection_t;

namespace zeph {

/// Tells whether the display of the environment can be reached: the toolkit aborts the process
/// without one, so this is asked first. Stays connected for as long as it lives, since a server
/// without any other client resets itself when the last one leaves, and refuses the next.
class X11Display {
public:
    X11Display();
    ~X11Display();
    X11Display(const X11Display &) = delete;
    X11Display &operator=(const X11Display &) = delete;

    bool isReachable() const;

private:
    xcb_connection_t *m_connection;
};

} // namespace zeph
