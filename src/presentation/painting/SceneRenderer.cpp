// SPDX-License-Identifier: MIT
#include "presentation/painting/SceneRenderer.h"

#include "presentation/painting/QtTextMetrics.h"
#include "presentation/painting/ScenePainter.h"

namespace zeph {

QRegion SceneRenderer::render(Scene scene, QImage &frame, double scale) {
    const SurfacePixels surface{frame.size(), scale};
    QRegion painted(frame.rect());
    if (m_shown && m_shown->surface == surface && m_shown->format == frame.format()) {
        painted = damage(m_shown->scene, scene, surface, m_painter.metrics());
    }
    if (!painted.isEmpty()) {
        m_painter.paint(scene, painted, scale, frame);
    }
    for (const QRect &rect : painted) {
        m_paintedPixels += qint64{rect.width()} * rect.height();
    }
    m_shown = Shown{std::move(scene), surface, frame.format()};
    return painted;
}

} // namespace zeph
