// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/X11Connection.h"
#include "adapters/session/x11/X11EventListener.h"
#include "adapters/session/x11/X11WindowManager.h"

#include <functional>
#include <vector>

namespace zeph {

/// The windows on the screen that no window manager lists, though they are panels: i3 and bspwm
/// list no docks, and without a manager nobody lists any. Under a manager that tells a work area,
/// which they do not, nothing is asked.
class X11UnlistedWindows : private X11EventListener {
public:
    /// Asks for the present state without waiting for it. Calls `handler` whenever `all` changed.
    X11UnlistedWindows(X11Connection &connection, std::function<void()> handler);

    /// Those of other programs than the manager, in its frames or in none; most are plain windows.
    const std::vector<xcb_window_t> &all() const { return m_all; }

private:
    void handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) override;
    void follow();
    void read();
    void readFrames(const std::vector<xcb_window_t> &frames);
    void take(std::vector<xcb_window_t> windows);

    std::function<void()> m_handler;
    X11WindowManager m_manager;
    std::vector<xcb_window_t> m_all;
    bool m_isWanted = false;
    bool m_isReading = false;
    bool m_readsAgain = false;
    Subscription m_managers;
};

} // namespace zeph
