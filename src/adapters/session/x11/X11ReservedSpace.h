// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/Strut.h"
#include "adapters/session/x11/X11Connection.h"
#include "adapters/session/x11/X11EventListener.h"
#include "adapters/session/x11/X11UnlistedWindows.h"

#include <functional>
#include <optional>
#include <set>

namespace zeph {

/// The space that panels and docks keep free of windows, followed without polling. Those that a
/// window manager leaves out of its list count where it is known to do so, or where none runs.
class X11ReservedSpace : private X11EventListener {
public:
    /// Knows the panels that are there already; a few round trips.
    explicit X11ReservedSpace(X11Connection &connection);

    /// What is taken from the sides of the monitor that covers these device pixels.
    QMargins margins(const QRect &monitor) const;

    /// What the window manager leaves for windows of all monitors together, panels that are no
    /// windows counted too; absent where none tells.
    const std::optional<QRect> &workArea() const { return m_extent.workArea; }

    /// Called when the struts, the work area or the size of the screen changed.
    void setChangeHandler(std::function<void()> handler);

private:
    struct Extent {
        QSize screen; // of all monitors together
        std::optional<QRect> workArea;

        bool operator==(const Extent &) const = default;
    };

    void handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) override;
    bool tellsOfStruts(const xcb_property_notify_event_t &notify) const;
    void read();
    std::vector<xcb_window_t> withUnlisted(std::vector<xcb_window_t> windows) const;
    void readStruts(const Extent &extent, std::vector<xcb_window_t> windows);
    void takeStruts(const Extent &extent, const std::vector<xcb_window_t> &windows,
                    const X11Connection::Replies &replies);
    bool isDock(const X11AnyReply &types) const;
    void watch(xcb_window_t window);

    Extent m_extent;
    std::vector<Strut> m_struts;
    X11UnlistedWindows m_unlisted;
    std::set<xcb_window_t> m_watched; // windows that tell us of their properties
    std::function<void()> m_handler;
    bool m_isReading = false;
    bool m_readsAgain = false;
};

} // namespace zeph
