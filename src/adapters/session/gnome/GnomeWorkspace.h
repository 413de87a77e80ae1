// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/apps/FrontApplication.h"
#include "adapters/session/gnome/AccessibleFront.h"

namespace zeph {

class RunLoop;
class X11Workspace;

/// The application in front on GNOME's Wayland: that of the active X11 window where one is, else
/// what is heard of the others. One that says nothing counts as another application, never as the
/// one before it.
class GnomeWorkspace : public Workspace {
public:
    /// All outlive this.
    GnomeWorkspace(X11Workspace &x11, AccessibleFront &accessible, DesktopEntries &entries,
                   RunLoop &runLoop);

    std::optional<RunningApplication> frontmostApplication() const override { return m_front; }
    Subscription
    subscribeToActivations(std::function<void(const RunningApplication &)> handler) override;

private:
    void follow();
    void choose();
    void set(const std::optional<RunningApplication> &front);

    X11Workspace &m_x11;
    AccessibleFront &m_accessible;
    RunLoop &m_runLoop;
    FrontApplication m_native;
    std::optional<RunningApplication> m_front;
    bool m_hasSeenX11 = false;
    quint64 m_turn = 0;
    ChangePublisher m_activations;
    WorkOwner m_owner;
    std::vector<Subscription> m_subscriptions;
};

} // namespace zeph
