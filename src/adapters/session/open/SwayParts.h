// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/common/WatchedInputEvents.h"
#include "adapters/session/sway/SwayInsets.h"
#include "adapters/session/sway/SwayIpc.h"
#include "adapters/session/sway/SwayVirtualDesktops.h"
#include "adapters/session/sway/SwayWorkspace.h"
#include "adapters/session/sway/SwayWorkspaceList.h"
#include "adapters/session/wayland/EdgeProbes.h"
#include "adapters/session/wayland/SessionParts.h"

namespace zeph {

struct SessionSurroundings;
class WaylandConnection;
class WaylandOutputs;

/// What sway tells over its own socket, and of the input by the protocol.
class SwayParts : public SessionParts {
public:
    /// `socket` as in SWAYSOCK. The others outlive this.
    SwayParts(const SessionSurroundings &surroundings, WaylandConnection &connection,
              WaylandOutputs &outputs, const QString &socket);

    Workspace &workspace() override { return m_workspace; }
    InputEvents &inputEvents() override { return m_inputEvents; }
    VirtualDesktops &virtualDesktops() override { return m_virtualDesktops; }
    UsableAreas *usableAreas() override { return &m_insets; }

private:
    SwayIpc m_ipc;
    SwayWorkspace m_workspace;
    SwayWorkspaceList m_list;
    SwayInsets m_insets;
    SwayVirtualDesktops m_virtualDesktops;
    WatchedInputEvents m_inputEvents;
    EdgeProbes m_edges;
};

} // namespace zeph
