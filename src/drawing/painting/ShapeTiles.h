// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/painting/Tile.h"
#include "drawing/scene/DrawItem.h"

#include <QCache>

namespace zeph {

/// Makes the pixels of rounded rectangles. Small ones are kept: a heatmap holds hundreds of squares
/// in a handful of looks.
class ShapeTiles {
public:
    ShapeTiles();

    /// The part of `item` that lies in `within` (device pixels), at `scale` device pixels a point.
    Tile tile(const ShapeItem &item, double scale, const QRect &within);

private:
    struct Key {
        QRectF rect; ///< its top left within one pixel
        double cornerRadius = 0;
        quint32 argb = 0;

        bool operator==(const Key &) const = default;
    };
    friend size_t qHash(const Key &key, size_t seed);

    QCache<Key, QImage> m_small;
};

} // namespace zeph
