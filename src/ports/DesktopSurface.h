// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Port.h"
#include "ports/Screens.h"

#include <QImage>
#include <QRegion>

#include <functional>

namespace zeph {

/// Paints into the pixels of a surface and answers which of them it painted. Both are in device
/// pixels, relative to the surface, devicePixelRatio 1. The image is valid within the call only.
using FramePainter = std::function<QRegion(QImage &frame)>;

/// A borderless surface as large as its screen: below all windows, on every desktop, invisible to
/// clicks, focus, window switchers and task bars. Its end takes it off the screen. Main thread.
class DesktopSurface : public Port {
public:
    /// Covers `screen`. When its size in pixels changed, its pixels are black and everything has
    /// to be painted anew.
    virtual void setScreen(const Screen &screen) = 0;

    /// True when the desktop beneath shows through where alpha is below 1.
    virtual bool isTransparent() const = 0;

    /// Has `paint` change the pixels, which are those that it left before, black at first; RGB32,
    /// or premultiplied ARGB32 when `isTransparent`. What it painted is shown, on a surface that
    /// is off the screen as soon as it is put there.
    ///
    /// As a rule that happens within the call, which answers the pixels painted. While the
    /// display system is still reading what was shown before, it happens in a later turn of the
    /// loop; the answer is empty then, and only the newest painter is kept. Never waits.
    virtual QRegion show(FramePainter paint) = 0;

    /// Puts the surface on the screen, without taking focus.
    virtual void orderFront() = 0;
    virtual void orderOut() = 0;
};

} // namespace zeph
