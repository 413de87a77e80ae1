// SPDX-License-Identifier: MIT
#pragma once

#include "services/refresh/IntegrationServices.h"
#include "wording/FramingContext.h"

namespace zeph {

class AppState;
class DesktopIconsManager;
class LaunchAtLogin;
class RootWallpaperView;
struct AppServices;
struct ShellPorts;

/// What the delegate has for the program's windows; the objects outlive them.
struct WindowParts {
    const AppServices &services;
    const ShellPorts &shell;
    const AppState &state;
    const RootWallpaperView &wallpaper;
    FramingContext framing;
    IntegrationServices webServices; ///< those that the refresh asks, with what they remember
    LaunchAtLogin &launchAtLogin;
    DesktopIconsManager &desktopIcons;
};

} // namespace zeph
