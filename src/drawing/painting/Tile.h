// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QPoint>

class QRegion;

namespace zeph {

/// The finished pixels of one draw item (premultiplied ARGB32) and the device pixel of their top
/// left corner. Items are painted whole and then laid down under a clip, so that a pixel never
/// depends on what else is repainted.
struct Tile {
    QImage pixels;
    QPoint corner;

    QRect rect() const { return {corner, pixels.size()}; }
};

/// A clear tile that covers `rect`.
Tile clearTile(const QRect &rect);

/// Lays `tile` over `target` where `clip` allows it. `target` is RGB32 or premultiplied ARGB32.
void blend(const Tile &tile, const QRegion &clip, QImage &target);

/// `mask` (Alpha8) in one colour, 0xAARRGGBB.
QImage tinted(const QImage &mask, quint32 argb);

} // namespace zeph
