// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/X11Selection.h"

#include <functional>

namespace zeph {

/// Whether a compositor blends the windows of the screen, followed without polling.
class X11Compositor {
public:
    explicit X11Compositor(X11Connection &connection);

    bool isRunning() const { return m_isRunning; }

    /// The window by which it tells so; XCB_WINDOW_NONE where none runs.
    xcb_window_t owner() const { return m_selection.owner(); }

    /// Calls `handler` whenever `isRunning` changed.
    [[nodiscard]] Subscription subscribe(std::function<void()> handler);

private:
    X11Selection m_selection;
    bool m_isRunning;
    ChangePublisher m_changes;
    Subscription m_owners;
};

} // namespace zeph
