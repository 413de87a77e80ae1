// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/X11Connection.h"
#include "adapters/session/x11/X11EventListener.h"

#include <QRect>

#include <functional>
#include <optional>
#include <vector>

namespace zeph {

/// What the window manager leaves of each monitor on the current workspace, panels that are no
/// windows counted too. GNOME's and those of its kin tell it in `_GTK_WORKAREAS_D<n>`, one property
/// a workspace. Followed without polling.
class X11MonitorWorkAreas : private X11EventListener {
public:
    /// Knows of none before the server's answers, which nothing here waits for.
    explicit X11MonitorWorkAreas(X11Connection &connection);

    /// In device pixels, like `monitor`; absent where the window manager does not tell.
    std::optional<QRect> on(const QRect &monitor) const;

    /// Called when the areas have changed.
    void setChangeHandler(std::function<void()> handler) { m_handler = std::move(handler); }

private:
    void handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) override;
    void read();
    void findProperty(const X11Connection::Replies &replies);
    void readAreas();
    void take(std::vector<QRect> areas);

    std::vector<QRect> m_areas;
    xcb_atom_t m_property = XCB_ATOM_NONE; // of the current workspace; none where it is not told
    std::function<void()> m_handler;
    bool m_isReading = false;
    bool m_readsAgain = false;
};

} // namespace zeph
