// SPDX-License-Identifier: MIT
#pragma once

#include "wording/FramingContext.h"

#include <memory>

namespace zeph {

class AppState;
class DesktopAppearance;
class DesktopIconsManager;
class DesktopWallpaper;
class IntegrationsStore;
class LaunchAtLogin;
class NotificationCenter;
class PermissionsManager;
class PreferencesStore;
class RootWallpaperView;
class RunLoop;
class ScenePainter;
class Screens;
class ServiceCheck;
class SystemSettings;
class UpdateFramework;
class UserDefaults;
class VirtualDesktops;
class WindowServer;
class Clock;

namespace ui {

/// What our windows show and change. All of it outlives them.
struct SettingsContext {
    PreferencesStore &preferences;
    IntegrationsStore &integrations;
    const AppState &state;
    UserDefaults &defaults;
    NotificationCenter &notifications;
    RunLoop &runLoop;
    const Clock &clock;
    FramingContext framing;
    Screens &screens;
    WindowServer &windowServer;
    VirtualDesktops &virtualDesktops;
    DesktopAppearance &appearance;
    std::shared_ptr<PermissionsManager> permissions;
    SystemSettings &systemSettings;
    LaunchAtLogin &launchAtLogin;
    DesktopIconsManager &desktopIcons;
    UpdateFramework &updates;
    const ServiceCheck &serviceCheck;
    const RootWallpaperView &wallpaper; ///< for the small pictures of it
    ScenePainter &painter;
    /// Null where the desktop has no wallpaper that ours could take the place of.
    DesktopWallpaper *desktopWallpaper = nullptr;
};

} // namespace ui

} // namespace zeph
