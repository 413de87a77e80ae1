// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/wayland/SurfaceScaling.h"
#include "adapters/session/wayland/WaylandFrames.h"
#include "adapters/session/wayland/WaylandHandle.h"
#include "adapters/session/wayland/WaylandOutputs.h"
#include "ports/DesktopSurface.h"

#include <QMarginsF>
#include <QObject>
#include <QTimer>

#include <memory>
#include <optional>

namespace zeph {

/// What layer surfaces are made with; outlives them.
struct LayerTools {
    wl_display &display;
    wl_compositor &compositor;
    wl_shm &memory;
    zwlr_layer_shell_v1 &shell;
    wp_viewporter *viewporter; ///< null where the compositor has none
    WaylandOutputs &outputs;
    ScalingAbilities abilities;
    SteadyNow now;
};

/// The objects of the protocol behind a surface, in the order of their making.
struct LayerObjects {
    std::uint32_t output = 0; ///< number of the output that it is on
    QMarginsF panels;         ///< room they took there when it was made; less once some went
    WaylandHandle<wl_surface> surface;
    WaylandHandle<zwlr_layer_surface_v1> role;
    WaylandHandle<wp_viewport> viewport; ///< made when it is needed
    std::optional<QSize> points;         ///< absent until the compositor has told a size
    std::optional<std::uint32_t> serial; ///< of a size that is not answered yet
    QSize attached;                      ///< size of the pixels that it shows
    SurfaceScaling scaling;
};

/// A surface on the layer between the compositor's own background and all windows. Hidden, it shows
/// one pixel of nothing: a surface that is taken off has to be negotiated anew, which compositors
/// get wrong in haste. While its output is away there is nothing on the screen. Where
/// a compositor stacks a newer surface beneath the older ones of its layer, it is made anew after a
/// panel came, which may be of the same layer.
class LayerSurface : public DesktopSurface {
public:
    LayerSurface(const LayerTools &tools, const Screen &screen, bool isTransparent);
    ~LayerSurface() override;

    void setScreen(const Screen &screen) override;
    bool isTransparent() const override { return m_isTransparent; }
    QRegion show(FramePainter paint) override;
    void orderFront() override;
    void orderOut() override;

private:
    void makeLayer();
    void followPlaces();
    void followPanels(const QMarginsF &panels);
    void remakeBelow();
    bool isCurrent(const zwlr_layer_surface_v1 *role) const;
    void noteSize(std::uint32_t serial, QSize points);
    void answerSize();
    bool acknowledgeSize();
    void noteClosed();
    void showFrame(const QRegion &damage);
    void showNothing();
    void attach(const WaylandPixels &pixels);
    void scale(const SurfaceScaling &scaling);
    void tellDamage(const QRegion &damage) const;
    QSize pointsOfScreen() const { return m_screen.frame.size().toSize(); }

    LayerTools m_tools;
    Screen m_screen;
    bool m_isTransparent;
    bool m_isVisible = false;
    WaylandFrames m_frames;
    std::unique_ptr<WaylandPixels> m_nothing; // made when it is needed
    FramePainter m_waiting;                   // until pixels are free
    std::optional<LayerObjects> m_layer;      // absent while the output is away
    std::optional<LayerObjects> m_former;     // shown until `m_layer` shows something
    QTimer m_rest;                            // runs after it was made anew for a panel
    bool m_isAbove = false;                   // of a panel that came during the rest
    Subscription m_places;
    QObject m_context;
};

} // namespace zeph
