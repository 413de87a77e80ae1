// SPDX-License-Identifier: MIT
#pragma once

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
    /// What the protocol itself leaves to each desktop, made with the session's connection and
    /// screens. Of what is left out nothing is known.
    struct Surroundings {
        std::function<std::unique_ptr<Workspace>(WaylandConnection &)> makeWorkspace = {};
        std::function<std::unique_ptr<InputEvents>(WaylandConnection &)> makeInputEvents = {};
        std::function<std::unique_ptr<VirtualDesktops>(WaylandConnection &, WaylandOutputs &)>
            makeVirtualDesktops = {};
    };

    /// Connects to the compositor of that name. Two round trips, each with a limit.
    static OpenedSession
    open(const Surroundings &surroundings, const QByteArray &display,
         std::chrono::milliseconds patience = WaylandConnection::usualPatience);

    Screens &screens() override { return m_outputs; }
    WindowServer &windowServer() override { return m_windowServer; }
    Workspace &workspace() override { return *m_workspace; }
    InputEvents &inputEvents() override { return *m_inputEvents; }
    VirtualDesktops &virtualDesktops() override { return *m_virtualDesktops; }

private:
    WaylandSession(std::unique_ptr<WaylandConnection> connection, LayerShell shell,
                   const Surroundings &surroundings);

    std::unique_ptr<WaylandConnection> m_connection;
    WaylandOutputs m_outputs;
    WaylandWindowServer m_windowServer;
    std::unique_ptr<Workspace> m_workspace;
    std::unique_ptr<InputEvents> m_inputEvents;
    std::unique_ptr<VirtualDesktops> m_virtualDesktops;
};

} // namespace zeph
