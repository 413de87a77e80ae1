// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/X11Compositor.h"
#include "adapters/session/x11/X11DesktopStacking.h"
#include "adapters/session/x11/X11Visual.h"
#include "ports/WindowServer.h"

namespace zeph {

class X11Connection;

/// Desktop-type windows of an X server. Outlives its surfaces.
class X11WindowServer : public WindowServer {
public:
    /// Null when the server stores pixels in no form that we can paint.
    static std::unique_ptr<X11WindowServer> create(X11Connection &connection);

    std::unique_ptr<DesktopSurface> makeDesktopSurface(const Screen &screen,
                                                       bool wantsTransparency) override;
    Subscription subscribeToCompositing(std::function<void()> handler) override;
    Subscription subscribeToLoss(std::function<void()> handler) override;

private:
    X11WindowServer(X11Connection &connection, const X11Visual &opaque);

    X11Connection &m_connection;
    X11Visual m_opaque;
    std::optional<X11Visual> m_withAlpha;
    X11Compositor m_compositor;
    X11DesktopStacking m_stacking;
};

} // namespace zeph
