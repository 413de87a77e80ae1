// SPDX-License-Identifier: MIT
#pragma once

#include "ports/DisplaySession.h"

#include <QByteArray>

#include <functional>

namespace zeph {

class Background;
class Consent;
class DesktopEntries;
class RunLoop;
class UserDefaults;

/// How to open the session of each display system; answers why where it can't be.
struct SessionOpeners {
    std::function<OpenedSession(const QByteArray &display)> wayland;
    std::function<OpenedSession()> x11;
};

/// The session that a wallpaper can be drawn in. `compositor` is the name of a Wayland compositor,
/// empty where there is none, and then nothing of Wayland is tried. A compositor without a place
/// for a wallpaper mostly runs an X server, below whose windows there is one.
OpenedSession openSession(const QByteArray &compositor, const SessionOpeners &openers);

/// What a session works with; everything outlives it.
struct SessionSurroundings {
    DesktopEntries &entries;
    Consent &inputConsent;
    RunLoop &runLoop;
    const Background &background;
    UserDefaults &defaults;
};

/// The session of the environment.
OpenedSession openSession(const SessionSurroundings &surroundings);

/// The plug-in by which the toolkit shows the program's own windows: X where there is any, since
/// task bars and trays can be told more there; else Wayland. Empty where there is neither.
QByteArray toolkitPlatform(bool hasX11, bool hasWayland);

} // namespace zeph
