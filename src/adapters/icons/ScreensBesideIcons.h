// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/icons/DesktopIconsWatch.h"
#include "ports/DrawingWay.h"
#include "ports/Screens.h"

namespace zeph {

class WindowServer;

/// Screens whose visible frame leaves out what the desktop's icons take at its sides,
/// while they are seen with the wallpaper.
class ScreensBesideIcons : public Screens {
public:
    /// All outlive this. `server` tells how the wallpaper gets onto the desktop.
    ScreensBesideIcons(Screens &screens, WindowServer &server, DesktopIconsWatch &icons);

    std::vector<Screen> all() const override { return m_beside; }
    std::optional<Screen> main() const override;
    Subscription subscribe(std::function<void()> handler) override;

private:
    void followWay();
    void follow();

    Screens &m_screens;
    WindowServer &m_server;
    DesktopIconsWatch &m_icons;
    std::vector<Screen> m_beside;
    std::optional<Screen> m_main;
    ChangePublisher m_changes;
    Subscription m_screenChanges;
    Subscription m_wayChanges;
    Subscription m_iconChanges;
};

/// Whether the desktop's icons are seen with a wallpaper that gets there in this way: over it, or
/// through it.
/// `areAboveDesktopWindows`: GNOME on Wayland keeps its icons above those.
bool showsIcons(const DrawingWay &way, bool areAboveDesktopWindows);

/// The same screens with such visible frames.
std::vector<Screen> besideIcons(std::vector<Screen> screens, const DesktopIcons &icons);

} // namespace zeph
