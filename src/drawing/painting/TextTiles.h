// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/painting/Tile.h"
#include "drawing/scene/DrawItem.h"

#include <QCache>

namespace zeph {

class QtTextMetrics;
struct ShapedText;

/// Makes the pixels of texts, with their shadows. A few blurred shadows are kept, since blurring
/// takes longer than all the rest; those that were not drawn for the longest go first.
class TextTiles {
public:
    explicit TextTiles(const QtTextMetrics &metrics);

    /// The part of `item` that lies in `within` (device pixels), at `scale` device pixels a point.
    Tile tile(const TextItem &item, double scale, const QRect &within);

    /// How many shadows were blurred since the start.
    int blurredShadows() const { return m_blurred; }

    /// The bytes that the kept shadows take.
    qsizetype keptBytes() const { return m_shadows.totalCost(); }

private:
    struct ShadowKey {
        QString text;
        FontSpec font;
        double radius = 0; ///< in device pixels
        double total = 1;  ///< device pixels to a point of the font
        double phase = 0;  ///< where in its pixel the text starts

        bool operator==(const ShadowKey &) const = default;
    };
    friend size_t qHash(const ShadowKey &key, size_t seed);

    Tile shadow(const TextItem &item, const ShapedText &shaped, double total,
                const QPointF &baseline);

    const QtTextMetrics &m_metrics;
    int m_blurred = 0;
    QCache<ShadowKey, Tile> m_shadows; // placed as if the text began in pixel 0, 0
};

} // namespace zeph
