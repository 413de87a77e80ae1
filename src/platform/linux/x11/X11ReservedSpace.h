// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/x11/Strut.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11EventListener.h"

#include <functional>
#include <set>

namespace zeph {

/// The space that panels and docks keep free of windows, followed without polling. Nothing is
/// reserved where no window manager lists its windows.
class X11ReservedSpace : private X11EventListener {
public:
    /// Knows the panels that are there already; a few round trips.
    explicit X11ReservedSpace(X11Connection &connection);

    /// What is taken from the sides of the monitor that covers these device pixels.
    QMargins margins(const QRect &monitor) const;

    /// Called when the struts or the size of the screen changed.
    void setChangeHandler(std::function<void()> handler);

private:
    void handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) override;
    bool tellsOfStruts(const xcb_property_notify_event_t &notify) const;
    void read();
    void readStruts(QSize screen, std::vector<xcb_window_t> windows);
    void takeStruts(QSize screen, const std::vector<xcb_window_t> &windows,
                    const X11Connection::Replies &replies);
    bool isDock(const X11AnyReply &types) const;
    void watch(xcb_window_t window);

    QSize m_screen;
    std::vector<Strut> m_struts;
    std::set<xcb_window_t> m_watched; // windows that tell us of their properties
    std::function<void()> m_handler;
    bool m_isReading = false;
    bool m_readsAgain = false;
};

} // namespace zeph
