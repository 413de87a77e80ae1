// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/X11Connection.h"
#include "adapters/session/x11/X11InputEvents.h"
#include "adapters/session/x11/X11Screens.h"
#include "adapters/session/x11/X11VirtualDesktops.h"
#include "adapters/session/x11/X11WindowServer.h"
#include "adapters/session/x11/X11Workspace.h"
#include "ports/DisplaySession.h"

namespace zeph {

/// The session of an X server, over a connection of its own.
class X11Session : public DisplaySession {
public:
    /// What the session works with; everything outlives it.
    struct Surroundings {
        DesktopEntries &entries;
        Consent &inputConsent;
    };

    /// A session, or why there is none, to tell the user.
    struct Opened {
        std::unique_ptr<X11Session> session;
        QString refusal;
    };

    /// Connects to `display`, that of the environment when empty. A few round trips.
    static Opened open(const Surroundings &surroundings, const QByteArray &display = {});

    X11Screens &screens() override { return m_screens; }
    X11WindowServer &windowServer() override { return *m_windowServer; }
    X11Workspace &workspace() override { return m_workspace; }
    InputEvents &inputEvents() override { return m_inputEvents; }
    VirtualDesktops &virtualDesktops() override { return m_virtualDesktops; }

private:
    X11Session(std::unique_ptr<X11Connection> connection,
               std::unique_ptr<X11WindowServer> windowServer, const Surroundings &surroundings);

    std::unique_ptr<X11Connection> m_connection;
    std::unique_ptr<X11WindowServer> m_windowServer;
    X11Screens m_screens;
    X11Workspace m_workspace;
    X11InputEvents m_inputEvents;
    X11VirtualDesktops m_virtualDesktops;
};

} // namespace zeph
