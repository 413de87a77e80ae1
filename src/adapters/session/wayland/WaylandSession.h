// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/wayland/SessionParts.h"
#include "adapters/session/wayland/WaylandConnection.h"
#include "adapters/session/wayland/WaylandOutputs.h"
#include "adapters/session/wayland/WaylandWindowServer.h"
#include "ports/DisplaySession.h"

#include <functional>
#include <memory>

namespace zeph {

/// The session of a Wayland compositor with layers, over a connection of its own.
class WaylandSession : public DisplaySession {
public:
    /// Makes what the desktop tells in its own way, over the session's connection and screens. An
    /// empty one stands for a desktop that tells nothing.
    using PartsMaker =
        std::function<std::unique_ptr<SessionParts>(WaylandConnection &, WaylandOutputs &)>;

    /// A session, or why there is none, to tell the user.
    struct Opened {
        std::unique_ptr<WaylandSession> session;
        QString refusal;
    };

    /// Connects to the compositor of that name. Two round trips, each with a limit.
    static Opened open(const PartsMaker &makeParts, const QByteArray &display,
                       std::chrono::milliseconds patience = compositorPatience);

    Screens &screens() override { return m_outputs; }
    WaylandWindowServer &windowServer() override { return m_windowServer; }
    Workspace &workspace() override { return m_parts->workspace(); }
    InputEvents &inputEvents() override { return m_parts->inputEvents(); }
    VirtualDesktops &virtualDesktops() override { return m_parts->virtualDesktops(); }

private:
    WaylandSession(std::unique_ptr<WaylandConnection> connection, LayerShell shell,
                   const PartsMaker &makeParts);

    std::unique_ptr<WaylandConnection> m_connection;
    WaylandOutputs m_outputs;
    WaylandWindowServer m_windowServer;
    std::unique_ptr<SessionParts> m_parts;
};

} // namespace zeph
