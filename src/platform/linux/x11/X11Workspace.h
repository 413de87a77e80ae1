// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Workspace.h"
#include "platform/linux/x11/X11EventListener.h"

#include <memory>

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
    void setActivationHandler(std::function<void(const RunningApplication &)> handler) override;

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
    std::function<void(const RunningApplication &)> m_handler;
    std::shared_ptr<X11Workspace *> m_self; // lets a late answer see that this is gone
};

} // namespace zeph
