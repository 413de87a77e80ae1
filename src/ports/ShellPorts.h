// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>

namespace zeph {

class ApplicationPolicy;
class DesktopAppearance;
class DesktopShell;
class LocationClient;
class LoginItem;
class Screens;
class StatusBar;
class SystemSettings;
class UpdateFramework;

/// The ports of what stands around the wallpaper: the tray, the session, the windows. No first
/// frame needs them, so they are made after it. The objects outlive whoever is handed this.
struct ShellPorts {
    ApplicationPolicy &policy;
    StatusBar &statusBar;
    LoginItem &loginItem;
    UpdateFramework &updates;
    DesktopAppearance &appearance;
    DesktopShell &desktopShell;
    SystemSettings &systemSettings;
    Screens &windowScreens; ///< for windows, which may cover icons of the desktop
    /// Makes a client for a fresh look at whether the location may be known.
    std::function<std::unique_ptr<LocationClient>()> makeLocationClient;
};

} // namespace zeph
