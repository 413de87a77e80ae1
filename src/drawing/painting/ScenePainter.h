// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/painting/ImageTiles.h"
#include "drawing/painting/ShapeTiles.h"
#include "drawing/painting/TextTiles.h"

#include <vector>

class QRegion;

namespace zeph {

class QtTextMetrics;
class SymbolLibrary;
struct Scene;

/// Paints scenes. One serves all surfaces, so that they share what it keeps. Main thread only.
class ScenePainter {
public:
    ScenePainter(const QtTextMetrics &metrics, SymbolLibrary &symbols);

    /// Paints what lies in `clip` (device pixels) anew into `target`, which is as large as the
    /// surface, at `scale` device pixels a point. A pixel comes out the same under any clip.
    void paint(const Scene &scene, const QRegion &clip, double scale, QImage &target);

    /// The two halves of `paint`: what lies under all items, and the items.
    void paintBackground(const Scene &scene, const QRegion &clip, QImage &target) const;
    void paintItems(const Scene &scene, const QRegion &clip, double scale, QImage &target);

    /// The finished items of a surface that is painted whole, bottom to top; `blend` lays them
    /// down. Needs no pixels of the surface, and so can be done while its background is being
    /// painted.
    std::vector<Tile> tiles(const Scene &scene, double scale, const QRect &surface);

    const QtTextMetrics &metrics() const { return m_metrics; }

private:
    Tile tile(const DrawItem &item, double scale, const QRect &surface);

    const QtTextMetrics &m_metrics;
    SymbolLibrary &m_symbols;
    TextTiles m_texts;
    ShapeTiles m_shapes;
    ImageTiles m_images;
};

} // namespace zeph
