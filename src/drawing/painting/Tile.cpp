// SPDX-License-Identifier: MIT
#include "drawing/painting/Tile.h"

#include <QRegion>
#include <QRgb>

#include <array>

namespace zeph {

namespace {

constexpr quint32 evenBytes = 0x00ff00ffU;

/// Each byte of `pixel` times `factor` (0 to 255) over 255, rounded.
quint32 dimmed(quint32 pixel, quint32 factor) {
    constexpr quint32 half = 0x00800080U;
    quint32 even = (pixel & evenBytes) * factor + half;
    even = (even + (even >> 8 & evenBytes)) >> 8 & evenBytes;
    quint32 odd = (pixel >> 8 & evenBytes) * factor + half;
    odd = (odd + (odd >> 8 & evenBytes)) & ~evenBytes;
    return even | odd;
}

void blendRow(const quint32 *source, int count, quint32 *target) {
    for (int at = 0; at < count; ++at) {
        target[at] = source[at] + dimmed(target[at], 255U - (source[at] >> 24));
    }
}

} // namespace

Tile clearTile(const QRect &rect) {
    Tile tile{QImage(rect.size(), QImage::Format_ARGB32_Premultiplied), rect.topLeft()};
    tile.pixels.fill(0);
    return tile;
}

void blend(const Tile &tile, const QRegion &clip, QImage &target) {
    for (const QRect &part : clip) {
        const QRect rect = part & tile.rect() & target.rect();
        for (int y = rect.top(); y <= rect.bottom(); ++y) {
            const auto *source =
                reinterpret_cast<const quint32 *>(tile.pixels.constScanLine(y - tile.corner.y()));
            auto *line = reinterpret_cast<quint32 *>(target.scanLine(y));
            blendRow(source + (rect.left() - tile.corner.x()), rect.width(), line + rect.left());
        }
    }
}

QImage tinted(const QImage &mask, quint32 argb) {
    std::array<quint32, 256> shades{};
    const quint32 color = qPremultiply(argb);
    for (quint32 cover = 0; cover < shades.size(); ++cover) {
        shades.at(cover) = dimmed(color, cover);
    }
    QImage image(mask.size(), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < mask.height(); ++y) {
        const uchar *cover = mask.constScanLine(y);
        auto *pixels = reinterpret_cast<quint32 *>(image.scanLine(y));
        for (int x = 0; x < mask.width(); ++x) {
            pixels[x] = shades.at(cover[x]);
        }
    }
    return image;
}

} // namespace zeph
