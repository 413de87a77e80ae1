// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/X11EventListener.h"
#include "base/ChangePublisher.h"

#include <functional>
#include <map>
#include <vector>

namespace zeph {

/// The windows of the desktop type that the window manager lists, ours among them, followed
/// without polling. None where no manager tells.
class X11DesktopWindows : private X11EventListener {
public:
    /// Asks for the present state without waiting for it.
    explicit X11DesktopWindows(X11Connection &connection);

    /// From bottom to top.
    const std::vector<xcb_window_t> &all() const { return m_all; }

    /// Calls `handler` each time the list was read, as after every change of the stacking of any
    /// windows, whether or not `all` changed by it.
    [[nodiscard]] Subscription subscribe(std::function<void()> handler);

    /// Reads the list though nothing was told.
    void read();

private:
    void handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) override;
    void takeOrder(std::vector<xcb_window_t> order);
    void readTypes(const std::vector<xcb_window_t> &windows);
    void publish();

    std::vector<xcb_window_t> m_order;        // of all windows, bottom to top
    std::map<xcb_window_t, bool> m_isDesktop; // of the windows in `m_order`
    std::vector<xcb_window_t> m_all;
    ChangePublisher m_changes;
};

} // namespace zeph
