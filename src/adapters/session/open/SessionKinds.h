// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/choose/SessionOffer.h"

#include <QString>

namespace zeph {

/// Who tells what the Wayland protocol leaves to each desktop.
enum class PartsKind { sway, kwin, protocol };

/// `swaySocket` as in SWAYSOCK where it is the compositor's, else empty; `currentDesktop` as in
/// XDG_CURRENT_DESKTOP. Whoever starts sway within another desktop has both variables set, and sway
/// is the one that is drawn on.
PartsKind partsKind(const QString &swaySocket, const QString &currentDesktop);

/// What is wrapped around the session of a display system.
enum class DesktopKind { plain, plasma, gnome };

/// The X server of a Wayland compositor tells of its own windows and input alone, whatever the
/// desktop. Such a server is drawn on where the compositor has no layer shell, which is GNOME's
/// case above all, so the rest is asked in GNOME's way.
DesktopKind desktopKind(DisplaySystem displaySystem, const QString &currentDesktop);

/// Whether the desktop is Cinnamon's, whose icons Nemo draws.
bool isCinnamon(const QString &currentDesktop);

} // namespace zeph
