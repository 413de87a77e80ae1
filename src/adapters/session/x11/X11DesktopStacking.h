// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/X11EventListener.h"

#include <QTimer>

#include <map>
#include <vector>

namespace zeph {

/// Keeps our desktop windows above those of other programs: a click on a desktop with icons
/// raises it over ours in most window managers, and our pixels would be gone.
class X11DesktopStacking : private X11EventListener {
public:
    explicit X11DesktopStacking(X11Connection &connection);

    void add(xcb_window_t window);
    void remove(xcb_window_t window);

    /// Whether a window manager runs; one or two round trips.
    bool hasWindowManager() const;

private:
    void handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) override;
    void readOrder();
    void takeOrder(std::vector<xcb_window_t> order);
    void readTypes(const std::vector<xcb_window_t> &windows);
    void restack();
    bool mayRestack();
    int mostInBurst() const;
    void endBurst();
    bool isOurs(xcb_window_t window) const;

    std::vector<xcb_window_t> m_ours;
    std::vector<xcb_window_t> m_order;        // bottom to top
    std::map<xcb_window_t, bool> m_isDesktop; // of the windows in `m_order`
    QTimer m_burst;                           // runs from the first restack to the end of the burst
    int m_inBurst = 0;
};

} // namespace zeph
