// SPDX-License-Identifier: MIT
#pragma once

#include "platform/DesktopSurface.h"
#include "platform/Port.h"

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

    /// Called on the main thread when a compositor started or stopped, so that surfaces that want
    /// transparency can be made anew.
    virtual void setCompositingHandler(std::function<void()> handler) = 0;

    /// Called once on the main thread when the connection to the window system was lost.
    virtual void setLostHandler(std::function<void()> handler) = 0;
};

} // namespace zeph
