// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/apps/FrontApplication.h"
#include "adapters/session/x11/X11EventListener.h"
#include "ports/Workspace.h"

namespace zeph {

/// The application of the active window, as window managers tell it. Kept up to date by notices,
/// so that asking costs nothing.
class X11Workspace : public Workspace, private X11EventListener {
public:
    /// Reads the present state, a few round trips.
    X11Workspace(X11Connection &connection, DesktopEntries &entries);

    std::optional<RunningApplication> frontmostApplication() const override {
        return m_front.now();
    }
    Subscription
    subscribeToActivations(std::function<void(const RunningApplication &)> handler) override;

    /// Whether a window of this server is active, one that is no application's included.
    bool hasActiveWindow() const { return m_activeWindow != XCB_WINDOW_NONE; }

    /// Calls `handler` after every change of the application in front, also to none, and of
    /// `hasActiveWindow`.
    [[nodiscard]] Subscription subscribe(std::function<void()> handler);

private:
    void handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) override;
    void readActiveWindow();
    void readWindow(xcb_window_t window);
    void checkThatWindowLives();
    void setActiveWindow(xcb_window_t window);

    xcb_window_t m_activeWindow = XCB_WINDOW_NONE;
    FrontApplication m_front;
    ChangePublisher m_changes;
    Subscription m_frontChanges;
};

} // namespace zeph
