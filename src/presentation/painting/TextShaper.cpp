// SPDX-License-Identifier: MIT
#include "presentation/painting/TextShaper.h"

#include "presentation/painting/QtFonts.h"

#include <QRawFont>
#include <QTextLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// The digits of one font and the cell that holds any of them.
class DigitCells {
public:
    explicit DigitCells(const QRawFont &font)
        : m_digits(font.glyphIndexesForString(u"0123456789"_s)),
          m_advances(font.advancesForGlyphIndexes(m_digits, QRawFont::UseDesignMetrics)) {
        for (const QPointF &advance : m_advances) {
            m_width = std::max(m_width, advance.x());
        }
    }

    /// The room that `glyph` lacks to its cell; 0 for all but digits.
    double missing(quint32 glyph) const {
        const qsizetype at = glyph == 0 ? -1 : m_digits.indexOf(glyph);
        return at < 0 ? 0 : m_width - m_advances[at].x();
    }

private:
    QList<quint32> m_digits;
    QList<QPointF> m_advances;
    double m_width = 0;
};

/// Moves each digit to the middle of its cell and what follows out of its way. Runs come from left
/// to right. Answers the width added.
double spreadDigits(std::vector<QGlyphRun> &runs) {
    double added = 0;
    for (QGlyphRun &run : runs) {
        const DigitCells cells(run.rawFont());
        const QList<quint32> glyphs = run.glyphIndexes();
        QList<QPointF> positions = run.positions();
        for (qsizetype at = 0; at < glyphs.size(); ++at) {
            const double missing = cells.missing(glyphs[at]);
            positions[at].rx() += added + missing / 2;
            added += missing;
        }
        run.setPositions(positions);
    }
    return added;
}

double leftEnd(const QGlyphRun &run) {
    const QList<QPointF> positions = run.positions();
    return positions.isEmpty() ? 0 : positions.first().x();
}

} // namespace

ShapedText shapeText(const QString &text, const FontSpec &font) {
    const ScaledFont scaled = qtFont(font);
    QTextOption option(Qt::AlignLeft);
    option.setWrapMode(QTextOption::NoWrap);
    option.setUseDesignMetrics(true);
    option.setTextDirection(text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    QTextLayout layout(text, scaled.font);
    layout.setTextOption(option);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    if (!line.isValid()) {
        layout.endLayout();
        return {};
    }
    line.setNumColumns(static_cast<int>(text.size()));
    layout.endLayout();

    ShapedText shaped;
    shaped.factor = scaled.factor;
    double width = line.horizontalAdvance();
    const QPointF toBaseline(-line.x(), -line.ascent());
    for (QGlyphRun run : line.glyphRuns()) {
        QList<QPointF> positions = run.positions();
        std::for_each(positions.begin(), positions.end(),
                      [&](QPointF &position) { position += toBaseline; });
        run.setPositions(positions);
        shaped.runs.push_back(std::move(run));
    }
    if (font.evenDigits) {
        std::stable_sort(shaped.runs.begin(), shaped.runs.end(),
                         [](const QGlyphRun &one, const QGlyphRun &other) {
                             return leftEnd(one) < leftEnd(other);
                         });
        width += spreadDigits(shaped.runs);
    }
    shaped.width = width * scaled.factor;
    return shaped;
}

} // namespace zeph
