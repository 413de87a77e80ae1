// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/InsistenceLimit.h"
#include "base/ChangePublisher.h"

#include <xcb/xproto.h>

#include <map>
#include <vector>

namespace zeph {

class X11Connection;
class X11DesktopWindows;
class X11WindowManager;

/// Where one of our windows lies among those of the desktop type.
enum class DesktopPlace {
    aboveDesktops,  ///< a click on a desktop with icons raises it in most window managers
    belowDesktops,  ///< so that a transparent desktop with icons lies over ours
    beneathManaged, ///< by ourselves, since the window manager doesn't know our window
};

/// Keeps our desktop windows in their place among those of other programs.
class X11DesktopStacking {
public:
    /// The others outlive it.
    X11DesktopStacking(X11Connection &connection, X11DesktopWindows &windows,
                       const X11WindowManager &manager);

    void add(xcb_window_t window, DesktopPlace place);
    void remove(xcb_window_t window);

    /// Whether a window manager runs that knows of layers.
    bool hasWindowManager() const;

    /// Lays a window that was added where it belongs without the help of a manager: beneath all
    /// others, but on the desktops of other programs if it lies above those.
    void layDown(xcb_window_t window);

private:
    void restack();
    void keepBeneath();
    void keepAbove(xcb_window_t window, const std::vector<xcb_window_t> &others);
    void keepBelow(xcb_window_t window, const std::vector<xcb_window_t> &others);
    std::vector<xcb_window_t> desktopsOfOthers() const;
    bool canAsk() const;
    bool mayRestack();

    X11Connection &m_connection;
    X11DesktopWindows &m_windows;
    const X11WindowManager &m_manager;
    std::map<xcb_window_t, DesktopPlace> m_ours;
    InsistenceLimit m_limit;
    Subscription m_notices;
};

} // namespace zeph
