// SPDX-License-Identifier: MIT
#include "drawing/painting/TextTiles.h"

#include "drawing/painting/Blur.h"
#include "drawing/painting/GlyphOutlines.h"
#include "drawing/painting/QtTextMetrics.h"
#include "drawing/painting/TextShaper.h"
#include "drawing/scene/ItemBounds.h"

#include <QPainter>
#include <QRawFont>

#include <algorithm>
#include <cmath>

namespace zeph {

namespace {

// The clock's shadow is another one each minute: room for those of the screens, not of the past.
constexpr qsizetype keptShadowBytes = qsizetype{192} << 10;
constexpr double smallestOutlined = 48; // device pixels; Qt keeps pictures of letters up to 64

/// Draws the glyphs into `tile`; `baseline` is the device pixel where they start.
void drawGlyphs(const ShapedText &shaped, quint32 argb, const QPointF &baseline, double total,
                Tile &tile) {
    const QColor color = QColor::fromRgba(argb);
    const double scale = total * shaped.factor;
    QPainter painter(&tile.pixels);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(color);
    painter.translate(baseline - QPointF(tile.corner));
    painter.scale(scale, scale);
    for (const QGlyphRun &run : shaped.runs) {
        const bool isLarge = run.rawFont().pixelSize() * scale >= smallestOutlined;
        const QPainterPath outlines = isLarge ? glyphOutlines(run) : QPainterPath();
        if (outlines.isEmpty()) {
            painter.drawGlyphRun(QPointF(0, 0), run);
        } else {
            painter.fillPath(outlines, color);
        }
    }
}

} // namespace

size_t qHash(const TextTiles::ShadowKey &key, size_t seed) {
    return qHashMulti(seed, key.text, key.font.size, key.radius, key.total, key.phase);
}

TextTiles::TextTiles(const QtTextMetrics &metrics)
    : m_metrics(metrics), m_shadows(keptShadowBytes) {}

Tile TextTiles::tile(const TextItem &item, double scale, const QRect &within) {
    const QRect bounds = deviceBounds(item, scale, m_metrics) & within;
    if (bounds.isEmpty() || item.text.isEmpty()) {
        return {};
    }
    const double total = scale * item.scale;
    const double down = m_metrics.box(item.style.font).baseline * total;
    // A baseline on a whole pixel keeps the feet of letters crisp.
    const QPointF baseline(item.origin.x() * scale, std::round(item.origin.y() * scale + down));
    const ShapedText shaped = m_metrics.shaped(item.text, item.style.font);
    Tile result = clearTile(bounds);
    if (item.style.shadow) {
        const Tile behind = shadow(item, shaped, total, baseline);
        blend(Tile{tinted(behind.pixels, item.style.shadow->color.argb()),
                   behind.corner - result.corner},
              result.pixels.rect(), result.pixels);
    }
    drawGlyphs(shaped, item.style.color.argb(), baseline, total, result);
    return result;
}

Tile TextTiles::shadow(const TextItem &item, const ShapedText &shaped, double total,
                       const QPointF &baseline) {
    const QPoint start(static_cast<int>(std::floor(baseline.x())), static_cast<int>(baseline.y()));
    const TextShadow &wanted = *item.style.shadow;
    const ShadowKey key{item.text, item.style.font, wanted.radius * total, total,
                        baseline.x() - start.x()};
    const QPoint offset(0, static_cast<int>(std::lround(wanted.offsetY * total)));
    if (const Tile *known = m_shadows.object(key)) {
        return {known->pixels, known->corner + start + offset};
    }
    const TextStyle plain{item.style.font, Color::black(), {}};
    const QPointF box(0, -m_metrics.box(plain.font).baseline);
    const int reach = blurReach(key.radius);
    const QRect room = deviceBounds(TextItem{item.text, plain, box}, total, m_metrics)
                           .adjusted(-reach, -reach, reach, reach);
    Tile letters = clearTile(room);
    if (letters.pixels.isNull()) {
        return {};
    }
    drawGlyphs(shaped, plain.color.argb(), QPointF(key.phase, 0), total, letters);
    ++m_blurred;
    const QImage mask = letters.pixels.convertToFormat(QImage::Format_Alpha8);
    auto *made = new Tile{blurred(mask, key.radius), room.topLeft()};
    Tile placed{made->pixels, made->corner + start + offset};
    const qsizetype bytes = made->pixels.sizeInBytes();
    m_shadows.setMaxCost(std::max(keptShadowBytes, bytes)); // the last one, however large
    m_shadows.insert(key, made, bytes);
    return placed;
}

} // namespace zeph
