// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/common/WatchedInputEvents.h"
#include "adapters/session/kwin/KWinFrontApplication.h"
#include "adapters/session/kwin/KWinScript.h"
#include "adapters/session/kwin/KWinVirtualDesktops.h"
#include "adapters/session/kwin/PlasmaInsets.h"
#include "adapters/session/wayland/SessionParts.h"

namespace zeph {

struct SessionSurroundings;
class WaylandConnection;

/// What KWin and Plasma's shell tell on the session bus, and of the input by the protocol.
class KWinParts : public SessionParts {
public:
    /// All outlive this.
    KWinParts(const SessionSurroundings &surroundings, WaylandConnection &connection,
              const QDBusConnection &sessionBus);

    Workspace &workspace() override { return m_workspace; }
    InputEvents &inputEvents() override { return m_inputEvents; }
    VirtualDesktops &virtualDesktops() override { return m_virtualDesktops; }
    UsableAreas *usableAreas() override { return &m_insets; }

private:
    KWinScript m_script;
    KWinFrontApplication m_workspace;
    KWinVirtualDesktops m_virtualDesktops;
    PlasmaInsets m_insets;
    WatchedInputEvents m_inputEvents;
};

} // namespace zeph
