// SPDX-License-Identifier: MIT
#include "drawing/painting/GlyphOutlines.h"

#include <QRawFont>

#include <cmath>

namespace zeph {

namespace {

/// The outline of a glyph in units of the font, whose coordinates are whole numbers. What is left
/// of an earlier drawing is an offset below one unit to the right and so can be cut off.
QPainterPath outlineInUnits(const QRawFont &unitFont, quint32 glyph) {
    QPainterPath path = unitFont.pathForGlyph(glyph);
    for (int at = 0; at < path.elementCount(); ++at) {
        const QPainterPath::Element element = path.elementAt(at);
        path.setElementPositionAt(at, std::floor(element.x), std::round(element.y));
    }
    return path;
}

} // namespace

QPainterPath glyphOutlines(const QGlyphRun &run) {
    QRawFont font = run.rawFont();
    if (!font.fontTable("CBLC").isEmpty()) { // of pictures; another size would spoil it for Qt
        return {};
    }
    const double scale = font.pixelSize() / font.unitsPerEm();
    font.setPixelSize(font.unitsPerEm());
    const QList<quint32> glyphs = run.glyphIndexes();
    const QList<QPointF> positions = run.positions();
    QPainterPath outlines;
    outlines.setFillRule(Qt::WindingFill);
    for (qsizetype at = 0; at < glyphs.size(); ++at) {
        const QPointF &position = positions[at];
        outlines.addPath(QTransform(scale, 0, 0, scale, position.x(), position.y())
                             .map(outlineInUnits(font, glyphs[at])));
    }
    return outlines;
}

} // namespace zeph
