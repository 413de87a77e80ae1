// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/painting/Tile.h"
#include "drawing/scene/DrawItem.h"

#include <QCache>

namespace zeph {

/// Decodes pictures, cuts them to their frames and rounds their corners. The last results are kept
/// up to a small number of bytes.
class ImageTiles {
public:
    ImageTiles();

    /// `item` at `scale` device pixels a point; empty for bytes that are no picture.
    Tile tile(const ImageItem &item, double scale);

private:
    struct Key {
        QByteArray encoded;
        QSize size;
        double cornerRadius = 0;

        bool operator==(const Key &) const = default;
    };
    friend size_t qHash(const Key &key, size_t seed);

    QCache<Key, QImage> m_pictures;
};

} // namespace zeph
