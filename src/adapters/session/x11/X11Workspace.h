// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/X11EventListener.h"
#include "base/ChangePublisher.h"
#include "base/WorkOwner.h"
#include "ports/Workspace.h"

namespace zeph {

class DesktopEntries;
struct ApplicationHints;

/// The application of the active window, as window managers tell it. Kept up to date by notices,
/// so that asking costs nothing.
class X11Workspace : public Workspace, private X11EventListener {
public:
    /// Reads the present state, a few round trips.
    X11Workspace(X11Connection &connection, DesktopEntries &entries);

    std::optional<RunningApplication> frontmostApplication() const override { return m_front; }
    Subscription
    subscribeToActivations(std::function<void(const RunningApplication &)> handler) override;

private:
    void handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) override;
    void readActiveWindow();
    void readWindow(xcb_window_t window);
    void checkThatWindowLives();
    void setFront(std::optional<RunningApplication> front);
    void findApplication(xcb_window_t window, const ApplicationHints &hints);

    DesktopEntries &m_entries;
    xcb_window_t m_activeWindow = XCB_WINDOW_NONE;
    std::optional<RunningApplication> m_front;
    ChangePublisher m_activations;
    Subscription m_entriesChanges;
    WorkOwner m_questions;
};

} // namespace zeph
