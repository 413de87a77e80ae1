// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/choose/SessionOffer.h"

#include <QString>

namespace zeph {

/// Who tells what the Wayland protocol leaves to each desktop.
enum class PartsKind { sway, kwin, protocol };

/// `swaySocket` as in SWAYSOCK, `currentDesktop` as in XDG_CURRENT_DESKTOP. Whoever starts sway
/// within another desktop has the words of both, and sway is the one that is drawn on.
PartsKind partsKind(const QString &swaySocket, const QString &currentDesktop);

/// What is wrapped around the session of a display system.
enum class DesktopKind { plain, plasma, gnome };

/// The X server of a Wayland compositor tells of its own windows and input alone, whatever desktop
/// it is; the rest is told in GNOME's way, and nowhere else than with GNOME is such a server drawn
/// on.
DesktopKind desktopKind(DisplaySystem displaySystem, const QString &currentDesktop);

/// Whether the desktop is Cinnamon's, whose icons Nemo draws.
bool isCinnamon(const QString &currentDesktop);

} // namespace zeph
