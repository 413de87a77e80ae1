// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChangePublisher.h"
#include "ports/DesktopSurface.h"
#include "ports/DrawingWay.h"
#include "ports/Port.h"

#include <functional>
#include <memory>

namespace zeph {

/// Makes surfaces behind the desktop's windows.
class WindowServer : public Port {
public:
    /// A hidden surface for `screen`. `wantsTransparency` is met only while a compositor runs;
    /// `DesktopSurface::isTransparent` tells.
    virtual std::unique_ptr<DesktopSurface> makeDesktopSurface(const Screen &screen,
                                                               bool wantsTransparency) = 0;

    /// By what the surfaces that are made now get onto the desktop, and why.
    virtual DrawingWay drawingWay() const = 0;

    /// Calls `handler` on the main thread whenever `drawingWay` changed, so that surfaces of
    /// another mechanism can be made anew.
    [[nodiscard]] virtual Subscription subscribeToDrawingWay(std::function<void()> handler) = 0;

    /// Calls `handler` on the main thread whenever a compositor started or stopped, so that
    /// surfaces that want transparency can be made anew.
    [[nodiscard]] virtual Subscription subscribeToCompositing(std::function<void()> handler) = 0;

    /// Calls `handler` on the main thread once, when the window system has gone away.
    [[nodiscard]] virtual Subscription subscribeToLoss(std::function<void()> handler) = 0;
};

} // namespace zeph
