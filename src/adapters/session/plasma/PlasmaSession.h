// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/plasma/PlasmaWallpaper.h"
#include "adapters/session/plasma/PlasmaWindowServer.h"
#include "adapters/session/plasma/RemovalWatch.h"
#include "ports/DisplaySession.h"

#include <memory>

namespace zeph {

/// The session of a display system under Plasma, whose own wallpaper can be ours.
class PlasmaSession : public DisplaySession {
public:
    /// What the session works with beside the display system; the objects outlive it.
    struct Surroundings {
        QDBusConnection sessionBus;
        UserDefaults &defaults;
        const Background &background;
        RunLoop &runLoop;
    };

    /// `permit` has the surfaces of `own` choose their way by what it is given.
    PlasmaSession(std::unique_ptr<DisplaySession> own,
                  std::function<void(const PlasmaPermission &)> permit,
                  const Surroundings &surroundings);

    Screens &screens() override { return m_own->screens(); }
    WindowServer &windowServer() override { return m_windowServer; }
    Workspace &workspace() override { return m_own->workspace(); }
    InputEvents &inputEvents() override { return m_own->inputEvents(); }
    VirtualDesktops &virtualDesktops() override { return m_own->virtualDesktops(); }
    DesktopWallpaper *desktopWallpaper() override { return &m_wallpaper; }
    void leave(std::chrono::milliseconds patience) override;

private:
    std::unique_ptr<DisplaySession> m_own;
    PlasmaWallpaper m_wallpaper;
    PlasmaWindowServer m_windowServer;
    RemovalWatch m_removal; // of the program
};

} // namespace zeph
