// SPDX-License-Identifier: MIT
#include "drawing/painting/ShapeTiles.h"

#include "drawing/scene/ItemBounds.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace zeph {

namespace {

constexpr qsizetype keptTiles = 64;
constexpr int largestTile = 48; // device pixels

QBrush brush(const Fill &fill, const QRectF &rect) {
    const QColor start = QColor::fromRgba(fill.start.argb());
    if (!fill.end) {
        return start;
    }
    QLinearGradient gradient(rect.topLeft(), rect.topRight());
    gradient.setColorAt(0, start);
    gradient.setColorAt(1, QColor::fromRgba(fill.end->argb()));
    return gradient;
}

QPainterPath rounded(const QRectF &rect, double cornerRadius) {
    const double radius = std::clamp(cornerRadius, 0.0, std::min(rect.width(), rect.height()) / 2);
    QPainterPath path;
    path.addRoundedRect(rect, radius, radius);
    return path;
}

/// The round end that a fill of `rect` shows: one shorter than it is round begins before the bar,
/// since by itself it would be an upright pill.
QPainterPath filledPart(const QRectF &rect, const QRectF &bar, double cornerRadius) {
    const double ends = 2 * std::clamp(cornerRadius, 0.0, std::min(bar.width(), bar.height()) / 2);
    const double before = ends - rect.width();
    if (before <= 0) {
        return rounded(rect, cornerRadius);
    }
    return rounded(rect.adjusted(-before, 0, 0, 0), cornerRadius)
        .intersected(rounded(bar, cornerRadius));
}

/// Draws `item`, whose `rect` is given in device pixels of the picture.
void draw(const ShapeItem &item, const QRectF &rect, double scale, Tile &tile) {
    QPainter painter(&tile.pixels);
    painter.setRenderHint(QPainter::Antialiasing);
    const double radius = item.cornerRadius * scale;
    if (item.fill) {
        const QRectF bar = item.bar ? snappedRect(*item.bar, scale).translated(-tile.corner) : rect;
        painter.fillPath(bar == rect ? rounded(rect, radius) : filledPart(rect, bar, radius),
                         brush(*item.fill, rect));
    }
    if (item.outline) {
        const double half = scale / 2; // inside the edge
        painter.setPen(QPen(QColor::fromRgba(item.outline->argb()), scale));
        painter.drawPath(rounded(rect.adjusted(half, half, -half, -half), radius - half));
    }
}

} // namespace

size_t qHash(const ShapeTiles::Key &key, size_t seed) {
    return qHashMulti(seed, key.rect.x(), key.rect.y(), key.rect.width(), key.argb);
}

ShapeTiles::ShapeTiles() : m_small(keptTiles) {}

Tile ShapeTiles::tile(const ShapeItem &item, double scale, const QRect &within) {
    const QRectF rect = item.bar ? QRectF(snappedRect(item.rect, scale))
                                 : QRectF(item.rect.topLeft() * scale, item.rect.size() * scale);
    const QRect whole = rect.toAlignedRect();
    const bool isPlain = item.fill && !item.fill->end && !item.outline && !item.bar;
    if (whole.width() > largestTile || whole.height() > largestTile || !isPlain) {
        Tile made = clearTile(whole & within);
        draw(item, rect.translated(-made.corner), scale, made);
        return made;
    }
    const Key key{rect.translated(-whole.topLeft()), item.cornerRadius * scale,
                  item.fill->start.argb()};
    if (const QImage *known = m_small.object(key)) {
        return {*known, whole.topLeft()};
    }
    Tile made = clearTile(whole);
    draw(item, key.rect, scale, made);
    m_small.insert(key, new QImage(made.pixels));
    return made;
}

} // namespace zeph
