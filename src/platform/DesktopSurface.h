// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Port.h"
#include "platform/Screens.h"

#include <QImage>
#include <QRegion>

namespace zeph {

/// A borderless surface as large as its screen: below all windows, on every desktop, invisible to
/// clicks, focus, window switchers and task bars. Its end takes it off the screen.
class DesktopSurface : public Port {
public:
    /// Covers `screen`. When its size in pixels changed, the frame buffer is a new, black one and
    /// everything has to be painted and presented anew.
    virtual void setScreen(const Screen &screen) = 0;

    /// The pixels to paint into, in device pixels, devicePixelRatio 1. RGB32, or premultiplied
    /// ARGB32 when `isTransparent`. Valid until `setScreen` or the end. May wait for the window
    /// system to have read the last presented pixels.
    virtual QImage &frameBuffer() = 0;

    /// True when the desktop beneath shows through where alpha is below 1.
    virtual bool isTransparent() const = 0;

    /// Shows the pixels of `damage` (device pixels, relative to the surface).
    virtual void present(const QRegion &damage) = 0;

    /// Puts the surface on the screen, without taking focus.
    virtual void orderFront() = 0;
    virtual void orderOut() = 0;
};

} // namespace zeph
