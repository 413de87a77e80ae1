// SPDX-License-Identifier: MIT
#pragma once

#include "presentation/painting/Tile.h"
#include "presentation/scene/DrawItem.h"

#include <QCache>

namespace zeph {

class QtTextMetrics;

/// Makes the pixels of texts, with their shadows. A few blurred shadows are kept, since blurring
/// takes longer than all the rest.
class TextTiles {
public:
    explicit TextTiles(const QtTextMetrics &metrics);

    /// The part of `item` that lies in `within` (device pixels), at `scale` device pixels a point.
    Tile tile(const TextItem &item, double scale, const QRect &within);

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

    Tile shadow(const TextItem &item, double total, const QPointF &baseline);

    const QtTextMetrics &m_metrics;
    QCache<ShadowKey, Tile> m_shadows; // placed as if the text began in pixel 0, 0
};

} // namespace zeph
