// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/X11Compositor.h"
#include "adapters/session/x11/X11DesktopPicture.h"
#include "adapters/session/x11/X11DesktopProgram.h"
#include "adapters/session/x11/X11DesktopStacking.h"
#include "adapters/session/x11/X11DesktopWindows.h"
#include "adapters/session/x11/X11DrawingWay.h"
#include "adapters/session/x11/X11IconCover.h"
#include "adapters/session/x11/X11Visual.h"
#include "adapters/session/x11/X11WindowManager.h"
#include "ports/WindowServer.h"

namespace zeph {

class X11Connection;

/// Surfaces of an X server, by whatever way suits its desktop. Outlives its surfaces.
class X11WindowServer : public WindowServer {
public:
    /// Null when the server stores pixels in no form that we can paint. `known` is what the server
    /// can't tell of the session.
    static std::unique_ptr<X11WindowServer> create(X11Connection &connection,
                                                   const SessionOffer &known = {});

    /// Has the way of drawing chosen by now, waiting for what the server was asked at the start.
    /// What a run that was killed left in a desktop's picture is mended then. Costs a round trip,
    /// or two where nobody has waited for replies since.
    void settle();

    /// Has the way of drawing chosen anew by whether our wallpaper can take the place of Plasma's.
    void permitPlasma(const PlasmaPermission &permission) { m_way.permitPlasma(permission); }

    /// Whether the icons of a desktop lie beneath our windows.
    X11IconCover &iconCover() { return m_iconCover; }

    std::unique_ptr<DesktopSurface> makeDesktopSurface(const Screen &screen,
                                                       bool wantsTransparency) override;
    DrawingWay drawingWay() const override { return m_way.now(); }
    Subscription subscribeToDrawingWay(std::function<void()> handler) override;
    Subscription subscribeToCompositing(std::function<void()> handler) override;
    Subscription subscribeToLoss(std::function<void()> handler) override;

private:
    X11WindowServer(X11Connection &connection, const X11Visual &opaque, const SessionOffer &known);
    DesktopPlace place() const;
    void followPicture();
    void mendPicture();

    X11Connection &m_connection;
    X11Visual m_opaque;
    std::optional<X11Visual> m_withAlpha;
    // These ask without waiting, and so go before the first that waits.
    X11WindowManager m_manager;
    X11DesktopWindows m_windows;
    X11DesktopProgram m_program;
    X11Compositor m_compositor;
    X11DrawingWay m_way;
    X11IconCover m_iconCover;
    X11DesktopStacking m_stacking;
    std::unique_ptr<X11DesktopPicture> m_picture; // from the first time that it is painted into
    Subscription m_programChanges;
    Subscription m_wayChanges;
};

} // namespace zeph
