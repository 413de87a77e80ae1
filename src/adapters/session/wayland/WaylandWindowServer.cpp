// SPDX-License-Identifier: MIT
#include "adapters/session/wayland/WaylandWindowServer.h"

#include "adapters/session/choose/MechanismChoice.h"
#include "base/Log.h"

#include <utility>

namespace zeph {

namespace {

// The newest versions of which something is used: damage in pixels, and layers with an end.
constexpr std::uint32_t kNewestCompositor = 4;
constexpr std::uint32_t kNewestShell = 4;
constexpr std::uint32_t kOnlyMemory = 1;
constexpr std::uint32_t kOnlyViewporter = 1;

SessionOffer offerOfLayers() {
    SessionOffer offer = offerOfEnvironment();
    offer.displaySystem = DisplaySystem::wayland;
    offer.hasLayerShell = true;
    return offer;
}

} // namespace

std::optional<LayerShell> LayerShell::bind(const WaylandConnection &connection) {
    LayerShell bound{
        connection.bindFirst<wl_compositor>(wl_compositor_interface, kNewestCompositor),
        connection.bindFirst<wl_shm>(wl_shm_interface, kOnlyMemory),
        connection.bindFirst<zwlr_layer_shell_v1>(zwlr_layer_shell_v1_interface, kNewestShell),
        connection.bindFirst<wp_viewporter>(wp_viewporter_interface, kOnlyViewporter)};
    if (!bound.compositor || !bound.memory || !bound.shell) {
        return std::nullopt;
    }
    return bound;
}

ScalingAbilities LayerShell::abilities() const {
    return {wl_compositor_get_version(compositor.get()) >=
                WL_SURFACE_SET_BUFFER_SCALE_SINCE_VERSION,
            viewporter != nullptr};
}

WaylandWindowServer::WaylandWindowServer(WaylandConnection &connection, LayerShell shell,
                                         WaylandOutputs &outputs, SteadyNow now)
    : m_connection(connection),
      m_shell(std::move(shell)),
      m_outputs(outputs),
      m_now(std::move(now)),
      m_offer(offerOfLayers()),
      m_way(chooseDrawingWay(m_offer)) {
    qCInfo(logSystem, "%s", qUtf8Printable(m_way.reason));
}

/// Whether it is another one.
bool WaylandWindowServer::chooseAnew() {
    const DrawingWay last = std::exchange(m_way, chooseDrawingWay(m_offer));
    if (m_way == last) {
        return false;
    }
    if (m_way.reason != last.reason) {
        qCInfo(logSystem, "%s", qUtf8Printable(m_way.reason));
    }
    return true;
}

std::unique_ptr<DesktopSurface> WaylandWindowServer::makeDesktopSurface(const Screen &screen,
                                                                        bool wantsTransparency) {
    m_offer.isTransparent = wantsTransparency;
    if (chooseAnew()) {
        // In a turn of the loop of its own, as whoever is told may be about to make surfaces.
        QMetaObject::invokeMethod(
            &m_context, [this] { m_wayChanges.send(); }, Qt::QueuedConnection);
    }
    return std::make_unique<LayerSurface>(
        LayerTools{*m_connection.display(), *m_shell.compositor, *m_shell.memory, *m_shell.shell,
                   m_shell.viewporter.get(), m_outputs, m_shell.abilities(), m_now},
        screen, wantsTransparency);
}

Subscription WaylandWindowServer::subscribeToDrawingWay(std::function<void()> handler) {
    return m_wayChanges.subscribe(std::move(handler));
}

void WaylandWindowServer::permitPlasma(const PlasmaPermission &permission) {
    m_offer.plasma = permission;
    if (chooseAnew()) {
        m_wayChanges.send();
    }
}

Subscription WaylandWindowServer::subscribeToCompositing(std::function<void()> handler) {
    return m_never.subscribe(std::move(handler));
}

Subscription WaylandWindowServer::subscribeToLoss(std::function<void()> handler) {
    return m_connection.subscribeToLoss(std::move(handler));
}

} // namespace zeph
