// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/choose/SessionOffer.h"
#include "adapters/session/wayland/LayerSurface.h"
#include "adapters/session/wayland/WaylandConnection.h"
#include "ports/WindowServer.h"

#include <memory>

namespace zeph {

/// What every layer surface needs of a compositor.
struct LayerShell {
    WaylandHandle<wl_compositor> compositor;
    WaylandHandle<wl_shm> memory;
    WaylandHandle<zwlr_layer_shell_v1> shell;
    WaylandHandle<wp_viewporter> viewporter; ///< null where there is none

    /// Absent when the compositor lacks what can't be done without.
    static std::optional<LayerShell> bind(const WaylandConnection &connection);

    ScalingAbilities abilities() const;
};

/// Layer surfaces of a Wayland compositor. Outlives its surfaces.
class WaylandWindowServer : public WindowServer {
public:
    /// `connection` and `outputs` outlive this. `now` is for tests.
    WaylandWindowServer(WaylandConnection &connection, LayerShell shell, WaylandOutputs &outputs,
                        SteadyNow now = std::chrono::steady_clock::now);

    std::unique_ptr<DesktopSurface> makeDesktopSurface(const Screen &screen,
                                                       bool wantsTransparency) override;
    DrawingWay drawingWay() const override { return m_way; }

    /// Has the way of drawing chosen anew by whether our wallpaper can take the place of Plasma's.
    /// What a compositor offers stays the same while it runs, and the words for it go by whether
    /// the newest surface is transparent, too.
    void permitPlasma(const PlasmaPermission &permission);

    Subscription subscribeToDrawingWay(std::function<void()> handler) override;
    /// Every compositor of Wayland composes; this never happens.
    Subscription subscribeToCompositing(std::function<void()> handler) override;
    Subscription subscribeToLoss(std::function<void()> handler) override;

private:
    bool chooseAnew();

    WaylandConnection &m_connection;
    LayerShell m_shell;
    WaylandOutputs &m_outputs;
    SteadyNow m_now;
    SessionOffer m_offer;
    DrawingWay m_way;
    ChangePublisher m_wayChanges;
    ChangePublisher m_never;
    QObject m_context;
};

} // namespace zeph
