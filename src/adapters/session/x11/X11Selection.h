// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/X11EventListener.h"
#include "base/ChangePublisher.h"

#include <QByteArray>

#include <functional>

namespace zeph {

/// Who owns a selection, by which a program announces that it is the window manager, the
/// compositor or the tray. Followed without polling.
class X11Selection : private X11EventListener {
public:
    /// Knows the owner of now; two round trips.
    X11Selection(X11Connection &connection, const QByteArray &name);

    /// XCB_WINDOW_NONE where there is none.
    xcb_window_t owner() const { return m_owner; }

    /// Calls `handler` whenever the owner became another window or none.
    [[nodiscard]] Subscription subscribe(std::function<void()> handler);

private:
    void handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) override;

    xcb_atom_t m_selection;
    xcb_window_t m_owner = XCB_WINDOW_NONE;
    int m_firstEvent = -1; // of XFixes; negative when the server lacks it
    ChangePublisher m_changes;
};

} // namespace zeph
