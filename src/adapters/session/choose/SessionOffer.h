// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/choose/DesktopProgram.h"

#include <QString>

#include <optional>

namespace zeph {

/// What the wallpaper is connected to. An X server can be one that a Wayland compositor runs for
/// programs that know no Wayland.
enum class DisplaySystem { x11, xwayland, wayland };

/// Who blends the windows of an X screen.
enum class Compositing { none, separateProgram, windowManager };

/// The window manager of an X screen, by what it says of itself.
struct WindowManagerOffer {
    QString name = {};
    bool knowsDesktopType = true; ///< keeps windows of the desktop type below all others

    bool operator==(const WindowManagerOffer &) const = default;
};

/// The program that draws the icons of the desktop.
struct DesktopProgramOffer {
    DesktopProgram program = DesktopProgram::xfdesktop;
    bool sharesPicture = false;        ///< its picture lies in a pixmap that others can paint into
    bool sharesOneDisplayOnly = false; ///< that picture, while there are several
    bool hasRoomForCopy = true; ///< the X server can keep that picture while we paint over it

    bool operator==(const DesktopProgramOffer &) const = default;
};

/// Whether our wallpaper can take the place of Plasma's own.
struct PlasmaPermission {
    bool isGranted = false; ///< the user allowed it, and nothing stands against it
    QString problem = {};   ///< why not although the user allowed it, without a full stop

    bool operator==(const PlasmaPermission &) const = default;
};

/// What a session offers to a wallpaper, by which the way of drawing is chosen.
struct SessionOffer {
    DisplaySystem displaySystem = DisplaySystem::x11;
    QString currentDesktop = {};                          ///< XDG_CURRENT_DESKTOP, names by colons
    bool hasLayerShell = false;                           ///< of Wayland
    std::optional<WindowManagerOffer> windowManager = {}; ///< of X11
    Compositing compositing = Compositing::none;          ///< of X11
    std::optional<DesktopProgramOffer> desktopProgram = {}; ///< that runs now
    bool isTransparent = false; ///< what lies beneath the wallpaper shines through it
    PlasmaPermission plasma = {};

    bool operator==(const SessionOffer &) const = default;
};

/// What the environment of this process tells of its session; all else keeps its
/// default.
SessionOffer offerOfEnvironment();

} // namespace zeph
