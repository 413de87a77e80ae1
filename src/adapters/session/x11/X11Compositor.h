// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/X11EventListener.h"
#include "base/ChangePublisher.h"

#include <functional>

namespace zeph {

/// Whether a compositor blends the windows of the screen, followed without polling.
class X11Compositor : private X11EventListener {
public:
    explicit X11Compositor(X11Connection &connection);

    bool isRunning() const { return m_owner != XCB_WINDOW_NONE; }

    /// Calls `handler` whenever `isRunning` changed.
    [[nodiscard]] Subscription subscribe(std::function<void()> handler);

private:
    void handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) override;

    xcb_atom_t m_selection;
    xcb_window_t m_owner = XCB_WINDOW_NONE;
    int m_firstEvent = -1; // of XFixes; negative when the server lacks it
    ChangePublisher m_changes;
};

} // namespace zeph
