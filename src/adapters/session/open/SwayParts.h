// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/sway/SwayInsets.h"
#include "adapters/session/sway/SwayIpc.h"
#include "adapters/session/sway/SwayWorkspace.h"
#include "adapters/session/sway/SwayWorkspaceList.h"
#include "adapters/session/wayland/SessionParts.h"
#include "adapters/session/wayland/UnknownParts.h"

namespace zeph {

/// What sway tells over its own socket.
class SwayParts : public SessionParts {
public:
    /// `socket` as in SWAYSOCK. The others outlive this.
    SwayParts(RunLoop &runLoop, DesktopEntries &entries, const QString &socket);

    Workspace &workspace() override { return m_workspace; }
    InputEvents &inputEvents() override { return m_inputEvents; }
    VirtualDesktops &virtualDesktops() override { return m_virtualDesktops; }
    UsableAreas *usableAreas() override { return &m_insets; }

private:
    SwayIpc m_ipc;
    SwayWorkspace m_workspace;
    SwayWorkspaceList m_list;
    SwayInsets m_insets;
    UnknownInputEvents m_inputEvents;
    NoVirtualDesktops m_virtualDesktops;
};

} // namespace zeph
