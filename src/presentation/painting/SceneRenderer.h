// SPDX-License-Identifier: MIT
#pragma once

#include "presentation/scene/Damage.h"
#include "presentation/scene/Scene.h"

#include <QImage>
#include <QRegion>

#include <optional>

namespace zeph {

class ScenePainter;

/// Keeps the frame buffer of one surface up to date: remembers the scene it shows and repaints only
/// what differs from it.
class SceneRenderer {
public:
    explicit SceneRenderer(ScenePainter &painter) : m_painter(painter) {}

    /// Makes `frame` show `scene` at `scale` device pixels a point and answers the device pixels
    /// that were painted, empty when nothing had to be. A frame of another size, format or scale
    /// than the last one is painted whole.
    QRegion render(Scene scene, QImage &frame, double scale);

    /// Forgets what the frame buffer shows: the next `render` paints all of it.
    void invalidate() { m_shown.reset(); }

    /// How many pixels were painted since the start.
    qint64 paintedPixels() const { return m_paintedPixels; }

private:
    struct Shown {
        Scene scene;
        SurfacePixels surface;
        QImage::Format format;
    };

    ScenePainter &m_painter;
    std::optional<Shown> m_shown;
    qint64 m_paintedPixels = 0;
};

} // namespace zeph
