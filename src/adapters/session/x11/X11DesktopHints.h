// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>

#include <xcb/xproto.h>

namespace zeph {

class X11Connection;

/// Marks an unmapped window as a desktop that no one can focus, decorate or list.
void writeDesktopHints(X11Connection &connection, xcb_window_t window);

/// Tells the window manager where the window wants to be.
void writeGeometryHints(X11Connection &connection, xcb_window_t window, const QRect &geometry);

/// Below all, on every desktop, not listed. Window managers erase these when a window is taken
/// off the screen, so they are written before every time it is put on.
void writeDesktopState(X11Connection &connection, xcb_window_t window);

/// Asks for the same of a window that is on the screen already. A window manager that is still
/// busy taking the window off erases what was written for the next time.
void askForDesktopState(X11Connection &connection, xcb_window_t window);

/// Asks to take back a call for the user's attention to the window.
void askForNoAttention(X11Connection &connection, xcb_window_t window);

/// Lets every click through to what lies beneath.
void refuseInput(X11Connection &connection, xcb_window_t window);

/// Asks the window manager to put the window above or below its peers, as a pager does. Some
/// refuse that to applications while people work in another.
void askToRestack(X11Connection &connection, xcb_window_t window, xcb_stack_mode_t mode);

/// Puts the window beneath its peers, by the window manager where it knows the window.
void lower(X11Connection &connection, xcb_window_t window);

/// Puts a window right above another one with the same parent.
void stackAbove(X11Connection &connection, xcb_window_t window, xcb_window_t sibling);

/// Takes a window off the screen as window managers expect to be told of it.
void withdraw(X11Connection &connection, xcb_window_t window);

} // namespace zeph
