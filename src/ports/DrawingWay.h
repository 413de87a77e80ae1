// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zeph {

/// By what a wallpaper gets onto the desktop.
enum class DrawingMechanism {
    desktopWindow,
    underDesktopProgram,
    rootPixmap,
    loweredOverride,
    layerSurface,
    plasmaPictures
};

/// A mechanism, and why this one, in words for people.
struct DrawingWay {
    DrawingMechanism mechanism = DrawingMechanism::desktopWindow;
    QString reason = {};

    bool operator==(const DrawingWay &) const = default;
};

} // namespace zeph
