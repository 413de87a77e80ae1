// SPDX-License-Identifier: MIT
#include "adapters/session/wayland/LayerSurface.h"

#include <algorithm>
#include <utility>

namespace zeph {

namespace {

constexpr std::uint32_t kAllEdges =
    ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP | ZWLR_LAYER_SURFACE_V1_ANCHOR_BOTTOM |
    ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT | ZWLR_LAYER_SURFACE_V1_ANCHOR_RIGHT;
// Keeps clear of no panel.
constexpr std::int32_t kBelowPanels = -1;

// While panels come and go all the time, it is made anew no more often than this.
constexpr std::chrono::seconds kRest{1};

// Not "desktop": KWin takes that for the desktop's own window, and a click there raises the one of
// Plasma's shell over it.
constexpr const char *kScope = "tavi-wallpaper";

QImage::Format formatOf(bool isTransparent) {
    return isTransparent ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
}

} // namespace

LayerSurface::LayerSurface(const LayerTools &tools, const Screen &screen, bool isTransparent)
    : m_tools(tools),
      m_screen(screen),
      m_isTransparent(isTransparent),
      m_frames(tools.display, tools.memory, screen.deviceFrame.size(), formatOf(isTransparent),
               tools.now,
               [this] {
                   if (m_waiting) {
                       show(std::exchange(m_waiting, nullptr));
                   }
               }),
      m_places(tools.outputs.subscribeToPlaces([this] { followPlaces(); })) {
    m_rest.setSingleShot(true);
    m_rest.setInterval(kRest);
    QObject::connect(&m_rest, &QTimer::timeout, &m_rest, [this] {
        if (m_isAbove) {
            remakeBelow();
        }
    });
    makeLayer();
}

LayerSurface::~LayerSurface() = default;

void LayerSurface::makeLayer() {
    m_layer.reset();
    m_frames.noteHidden();
    const auto place = m_tools.outputs.placeOf(m_screen);
    if (!place) {
        return;
    }
    LayerObjects &layer = m_layer.emplace();
    layer.output = place->number;
    layer.panels = place->panels;
    layer.surface.reset(wl_compositor_create_surface(&m_tools.compositor));
    const WaylandHandle<wl_region> nowhere(wl_compositor_create_region(&m_tools.compositor));
    wl_surface_set_input_region(layer.surface.get(), nowhere.get());
    layer.role.reset(
        zwlr_layer_shell_v1_get_layer_surface(&m_tools.shell, layer.surface.get(), place->output,
                                              ZWLR_LAYER_SHELL_V1_LAYER_BOTTOM, kScope));
    static constexpr zwlr_layer_surface_v1_listener listener{
        [](void *self, zwlr_layer_surface_v1 *role, std::uint32_t serial, std::uint32_t width,
           std::uint32_t height) {
            if (auto &surface = *static_cast<LayerSurface *>(self); surface.isCurrent(role)) {
                surface.noteSize(serial, {static_cast<int>(width), static_cast<int>(height)});
            }
        },
        [](void *self, zwlr_layer_surface_v1 *role) {
            if (auto &surface = *static_cast<LayerSurface *>(self); surface.isCurrent(role)) {
                surface.noteClosed();
            }
        }};
    zwlr_layer_surface_v1_add_listener(layer.role.get(), &listener, this);
    zwlr_layer_surface_v1_set_size(layer.role.get(), 0, 0); // the compositor decides
    zwlr_layer_surface_v1_set_anchor(layer.role.get(), kAllEdges);
    zwlr_layer_surface_v1_set_exclusive_zone(layer.role.get(), kBelowPanels);
    zwlr_layer_surface_v1_set_keyboard_interactivity(
        layer.role.get(), ZWLR_LAYER_SURFACE_V1_KEYBOARD_INTERACTIVITY_NONE);
    wl_surface_commit(layer.surface.get());
}

/// An output that was away and is back is another one to the compositor.
void LayerSurface::followPlaces() {
    const auto place = m_tools.outputs.placeOf(m_screen);
    if (place && (!m_layer || m_layer->output != place->number)) {
        m_former.reset();
        makeLayer();
    } else if (place && place->laterLieBelow) {
        followPanels(place->panels);
    }
}

/// What was made before a panel may cover it.
void LayerSurface::followPanels(const QMarginsF &panels) {
    const QMarginsF before = std::exchange(m_layer->panels, panels);
    const bool isMore = panels.left() > before.left() || panels.top() > before.top() ||
                        panels.right() > before.right() || panels.bottom() > before.bottom();
    m_isAbove = m_isAbove || isMore;
    if (m_isAbove && !m_rest.isActive()) {
        remakeBelow();
    }
}

void LayerSurface::remakeBelow() {
    m_isAbove = false;
    m_rest.start();
    // What is on the screen goes when there is something in its place. While that one waits for its
    // size, the one before may still be there.
    if (m_isVisible && m_layer && !m_layer->attached.isEmpty()) {
        m_former.emplace(std::move(*m_layer));
    }
    makeLayer();
}

bool LayerSurface::isCurrent(const zwlr_layer_surface_v1 *role) const {
    return m_layer && m_layer->role.get() == role;
}

void LayerSurface::noteClosed() {
    const std::uint32_t closed = m_layer->output;
    m_former.reset();
    m_layer.reset();
    m_frames.noteHidden();
    // Mostly because the output goes, in which case it is told next. Where another one has taken
    // its place already, that is not told again.
    const auto place = m_tools.outputs.placeOf(m_screen);
    if (place && place->number != closed) {
        makeLayer();
    }
}

void LayerSurface::noteSize(std::uint32_t serial, QSize points) {
    const bool isFirstUnanswered = !std::exchange(m_layer->serial, serial);
    m_layer->points = points.isEmpty() ? pointsOfScreen() : points;
    if (isFirstUnanswered) {
        // In the next turn of the loop: while displays change, one size follows the other.
        QMetaObject::invokeMethod(
            &m_context, [this] { answerSize(); }, Qt::QueuedConnection);
    }
}

void LayerSurface::answerSize() {
    if (!m_layer || !acknowledgeSize()) {
        return; // another one by now, or a frame was shown in between
    }
    if (m_isVisible && m_layer->attached.isEmpty()) {
        showFrame(QRect(QPoint(), m_frames.size()));
        return;
    }
    if (m_isVisible) {
        scale(surfaceScaling(m_layer->attached, *m_layer->points, m_tools.abilities));
    }
    wl_surface_commit(m_layer->surface.get());
}

/// Has to come before the pixels for that size. False when there was nothing to answer.
bool LayerSurface::acknowledgeSize() {
    if (!m_layer->serial) {
        return false;
    }
    zwlr_layer_surface_v1_ack_configure(m_layer->role.get(), *m_layer->serial);
    m_layer->serial.reset();
    return true;
}

void LayerSurface::setScreen(const Screen &screen) {
    m_screen = screen;
    if (m_screen.deviceFrame.size() != m_frames.size()) {
        m_waiting = nullptr;
        m_frames.resize(m_screen.deviceFrame.size());
    }
    followPlaces();
}

QRegion LayerSurface::show(FramePainter paint) {
    if (!m_frames.makeFree()) {
        m_waiting = std::move(paint);
        return {};
    }
    m_waiting = nullptr;
    QRegion painted = m_frames.paint(paint);
    if (!painted.isEmpty()) {
        showFrame(painted);
    }
    return painted;
}

void LayerSurface::orderFront() {
    if (!std::exchange(m_isVisible, true)) {
        showFrame(QRect(QPoint(), m_frames.size()));
    }
}

void LayerSurface::orderOut() {
    if (std::exchange(m_isVisible, false)) {
        showNothing();
    }
}

/// Hands the frame over, where there is somewhere to show it by now.
void LayerSurface::showFrame(const QRegion &damage) {
    const WaylandPixels *frame = m_frames.current();
    if (!m_isVisible || !frame || !m_layer || !m_layer->points) {
        return;
    }
    acknowledgeSize();
    attach(*frame);
    scale(surfaceScaling(frame->size(), *m_layer->points, m_tools.abilities));
    tellDamage(damage);
    wl_surface_commit(m_layer->surface.get());
    m_frames.noteCommitted();
    m_former.reset();
}

void LayerSurface::showNothing() {
    m_former.reset();
    if (!m_layer || m_layer->attached.isEmpty()) {
        return; // it is not on the screen yet
    }
    if (!m_nothing) {
        m_nothing = WaylandPixels::create(m_tools.memory, {1, 1},
                                          QImage::Format_ARGB32_Premultiplied, [] {});
    }
    if (!m_nothing) {
        return;
    }
    m_frames.noteHidden();
    attach(*m_nothing);
    scale({});
    tellDamage(QRect(0, 0, 1, 1));
    wl_surface_commit(m_layer->surface.get());
}

void LayerSurface::attach(const WaylandPixels &pixels) {
    wl_surface_attach(m_layer->surface.get(), pixels.buffer(), 0, 0);
    m_layer->attached = pixels.size();
}

void LayerSurface::scale(const SurfaceScaling &scaling) {
    LayerObjects &layer = *m_layer;
    if (scaling == layer.scaling) {
        return;
    }
    if (scaling.factor != layer.scaling.factor) {
        wl_surface_set_buffer_scale(layer.surface.get(), scaling.factor);
    }
    if (!layer.viewport && scaling.destination) {
        layer.viewport.reset(wp_viewporter_get_viewport(m_tools.viewporter, layer.surface.get()));
    }
    if (layer.viewport) {
        const QSize size = scaling.destination.value_or(QSize(-1, -1)); // as large as the pixels
        wp_viewport_set_destination(layer.viewport.get(), size.width(), size.height());
    }
    layer.scaling = scaling;
}

void LayerSurface::tellDamage(const QRegion &damage) const {
    wl_surface *surface = m_layer->surface.get();
    if (wl_surface_get_version(surface) < WL_SURFACE_DAMAGE_BUFFER_SINCE_VERSION) {
        // Counted in points there. Old compositors get it all, which is never too little.
        wl_surface_damage(surface, 0, 0, m_layer->attached.width(), m_layer->attached.height());
        return;
    }
    for (const QRect &rect : damage) {
        wl_surface_damage_buffer(surface, rect.x(), rect.y(), rect.width(), rect.height());
    }
}

} // namespace zeph
