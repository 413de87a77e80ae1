// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/scene/Damage.h"
#include "drawing/scene/Scene.h"

#include <QImage>
#include <QRegion>

#include <memory>
#include <optional>

namespace zeph {

class ScenePainter;

/// Keeps the frame buffer of one surface up to date: remembers the scene it shows and repaints only
/// what differs from it.
class SceneRenderer {
public:
    explicit SceneRenderer(ScenePainter &painter);
    ~SceneRenderer();
    SceneRenderer(const SceneRenderer &) = delete;
    SceneRenderer &operator=(const SceneRenderer &) = delete;

    /// Starts to paint `backdrop` over all of `frame` on another thread while the caller lays out
    /// the scene, unless the frame shows a picture already. The next call is `render` into the
    /// same frame, which waits for it.
    void paintAhead(const AmbientBackground &backdrop, QImage &frame);

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

    struct Ahead;

    void renderAhead(const Scene &scene, QImage &frame, double scale);
    bool tookBackdropAhead(const Scene &scene, const QImage &frame);

    ScenePainter &m_painter;
    std::optional<Shown> m_shown;
    std::unique_ptr<Ahead> m_ahead; // until the next render
    qint64 m_paintedPixels = 0;
};

} // namespace zeph
