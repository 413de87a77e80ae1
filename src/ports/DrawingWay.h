// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zeph {

/// The techniques by which a wallpaper gets onto the desktop.
enum class DrawingMechanism {
    desktopWindow, ///< X11: a window of the desktop type, above a desktop program if there is one
    underDesktopProgram, ///< X11: the same, beneath the transparent window that has the icons
    rootPixmap,      ///< X11: painted into the pixmap over which a desktop program draws its icons
    loweredOverride, ///< X11: a window that no manager manages, kept below all others
    layerSurface,    ///< Wayland: a surface of the layer shell, above the background layer
    plasmaPictures   ///< pictures for the wallpaper package that Plasma's own desktop shows
};

/// A mechanism, and why this one, in words for people.
struct DrawingWay {
    DrawingMechanism mechanism = DrawingMechanism::desktopWindow;
    QString reason = {};
    bool isTransparent = false; ///< what lies beneath shines through, the desktop's icons included

    bool operator==(const DrawingWay &) const = default;
};

} // namespace zeph
