// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/common/WatchedInputEvents.h"
#include "adapters/session/wayland/UnknownParts.h"

#include <memory>

namespace zeph {

struct SessionSurroundings;
class WaylandConnection;

/// What a compositor tells by the protocol alone.
class ProtocolParts : public SessionParts {
public:
    /// Both outlive this.
    ProtocolParts(const SessionSurroundings &surroundings, WaylandConnection &connection);

    Workspace &workspace() override { return *m_workspace; }
    InputEvents &inputEvents() override { return m_inputEvents; }
    VirtualDesktops &virtualDesktops() override { return m_virtualDesktops; }
    UsableAreas *usableAreas() override { return nullptr; }

private:
    std::unique_ptr<Workspace> m_workspace;
    NoVirtualDesktops m_virtualDesktops;
    WatchedInputEvents m_inputEvents;
};

} // namespace zeph
