// SPDX-License-Identifier: MIT
#include "drawing/painting/SceneRenderer.h"

#include "base/StartedThread.h"
#include "drawing/painting/BackdropPainter.h"
#include "drawing/painting/QtTextMetrics.h"
#include "drawing/painting/ScenePainter.h"

#include <utility>

namespace zeph {

/// A backdrop that is being painted; its end waits for that.
struct SceneRenderer::Ahead {
    Ahead(const AmbientBackground &wanted, QImage &frame)
        : backdrop(wanted),
          pixels(frame.bits()),
          thread(startedThread([this, &frame] { paintBackdrop(backdrop, frame.rect(), frame); })) {}
    ~Ahead() {
        if (thread) {
            thread->join();
        }
    }
    Ahead(const Ahead &) = delete;
    Ahead &operator=(const Ahead &) = delete;

    AmbientBackground backdrop;
    const uchar *pixels;
    std::optional<std::thread> thread;
};

SceneRenderer::SceneRenderer(ScenePainter &painter) : m_painter(painter) {}

SceneRenderer::~SceneRenderer() = default;

void SceneRenderer::paintAhead(const AmbientBackground &backdrop, QImage &frame) {
    if (!m_shown) {
        m_ahead.reset();
        m_ahead = std::make_unique<Ahead>(backdrop, frame);
    }
}

/// Waits for what is painted ahead, and tells whether `frame` shows the backdrop of `scene` now.
bool SceneRenderer::tookBackdropAhead(const Scene &scene, const QImage &frame) {
    const std::unique_ptr<Ahead> ahead = std::move(m_ahead);
    return ahead && ahead->thread && ahead->pixels == frame.constBits() &&
           scene.backdrop == ahead->backdrop;
}

/// Paints all of `frame`; the items are made while another thread paints the backdrop.
void SceneRenderer::renderAhead(const Scene &scene, QImage &frame, double scale) {
    const std::vector<Tile> tiles = m_painter.tiles(scene, scale, frame.rect());
    if (!tookBackdropAhead(scene, frame)) {
        m_painter.paintBackground(scene, frame.rect(), frame);
    }
    for (const Tile &tile : tiles) {
        blend(tile, frame.rect(), frame);
    }
}

QRegion SceneRenderer::render(Scene scene, QImage &frame, double scale) {
    const SurfacePixels surface{frame.size(), scale};
    QRegion painted(frame.rect());
    if (m_ahead) {
        renderAhead(scene, frame, scale);
    } else {
        if (m_shown && m_shown->surface == surface && m_shown->format == frame.format()) {
            painted = damage(m_shown->scene, scene, surface, m_painter.metrics());
        }
        if (!painted.isEmpty()) {
            m_painter.paint(scene, painted, scale, frame);
        }
    }
    for (const QRect &rect : painted) {
        m_paintedPixels += qint64{rect.width()} * rect.height();
    }
    m_shown = Shown{std::move(scene), surface, frame.format()};
    return painted;
}

} // namespace zeph
