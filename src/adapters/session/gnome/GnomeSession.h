// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/common/WatchedInputEvents.h"
#include "adapters/session/gnome/AccessibleFront.h"
#include "adapters/session/gnome/GnomeWorkspace.h"
#include "adapters/session/gnome/MutterScales.h"
#include "adapters/session/x11/X11Session.h"

#include <memory>

namespace zeph {

/// The session of GNOME on Wayland: what is drawn goes through its X server, which knows nothing of
/// the scales of the monitors and of the windows and input of Wayland's own programs. That comes
/// from the buses.
class GnomeSession : public DisplaySession {
public:
    /// What the session works with beside the X server; everything outlives it.
    struct Surroundings {
        QDBusConnection sessionBus;
        Background background;
        DesktopEntries &entries;
        Consent &inputConsent;
        RunLoop &runLoop;
    };

    GnomeSession(std::unique_ptr<X11Session> x11, const Surroundings &surroundings);

    Screens &screens() override { return m_x11->screens(); }
    WindowServer &windowServer() override { return m_x11->windowServer(); }
    Workspace &workspace() override { return m_workspace; }
    InputEvents &inputEvents() override { return m_inputEvents; }
    VirtualDesktops &virtualDesktops() override { return m_x11->virtualDesktops(); }

private:
    MutterScales m_scales;
    std::unique_ptr<X11Session> m_x11; // goes by the scales
    AccessibleFront m_accessible;
    GnomeWorkspace m_workspace;
    WatchedInputEvents m_inputEvents;
};

} // namespace zeph
