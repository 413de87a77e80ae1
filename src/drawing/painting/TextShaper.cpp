// SPDX-License-Identifier: MIT
#include "drawing/painting/TextShaper.h"

#include "drawing/painting/FontFamilies.h"
#include "drawing/painting/OwnFonts.h"
#include "drawing/painting/QtFonts.h"

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
        : m_digits(font.glyphIndexesForString(u"0123456789"_s)) {
        for (const QPointF &advance :
             font.advancesForGlyphIndexes(m_digits, QRawFont::UseDesignMetrics)) {
            m_width = std::max(m_width, advance.x());
        }
    }

    double width() const { return m_width; }
    bool holds(quint32 glyph) const { return glyph != 0 && m_digits.contains(glyph); }

private:
    QList<quint32> m_digits;
    double m_width = 0;
};

/// Moves each digit of `run` to the middle of its cell and what follows out of its way. A pair of
/// letters may be kerned, but nothing stands closer to a digit than to another one. Answers the
/// width added. The first `blanks` glyphs, which stand for missing digits, get a cell each too.
double spreadDigits(QGlyphRun &run, double letterSpacing, qsizetype blanks) {
    const DigitCells cells(run.rawFont());
    const QList<quint32> glyphs = run.glyphIndexes();
    const QList<QPointF> advances =
        run.rawFont().advancesForGlyphIndexes(glyphs, QRawFont::UseDesignMetrics);
    QList<QPointF> positions = run.positions();
    double added = 0;
    for (qsizetype at = 0; at < glyphs.size(); ++at) {
        const bool isDigit = cells.holds(glyphs[at]);
        const bool pairHasDigit =
            at + 1 < glyphs.size() && (isDigit || cells.holds(glyphs[at + 1]));
        const double kerning =
            pairHasDigit && advances[at].x() > 0 && advances[at + 1].x() > 0
                ? positions[at + 1].x() - positions[at].x() - advances[at].x() - letterSpacing
                : 0;
        const double missing = isDigit || at < blanks ? cells.width() - advances[at].x() : 0;
        positions[at].rx() += added + missing / 2;
        added += missing - kerning;
    }
    run.setPositions(positions);
    return added;
}

/// How many blanks a text begins with to keep the place of digits, as in " 9%" below "10%".
qsizetype leadingBlanks(const QString &text) {
    const auto first =
        std::find_if(text.begin(), text.end(), [](QChar letter) { return letter != u' '; });
    return first != text.end() && first->isDigit() ? first - text.begin() : 0;
}

void moveRight(QGlyphRun &run, double distance) {
    QList<QPointF> positions = run.positions();
    for (QPointF &position : positions) {
        position.rx() += distance;
    }
    run.setPositions(positions);
}

double leftEnd(const QGlyphRun &run) {
    const QList<QPointF> positions = run.positions();
    return positions.isEmpty() ? 0 : positions.first().x();
}

/// Whether a box stands for a letter that no known font has.
bool lacksLetter(const ShapedText &shaped) {
    return std::any_of(shaped.runs.begin(), shaped.runs.end(),
                       [](const QGlyphRun &run) { return run.glyphIndexes().contains(0U); });
}

ShapedText shapedByKnownFonts(const QString &text, const FontSpec &font) {
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
        double added = 0;
        for (QGlyphRun &run : shaped.runs) {
            moveRight(run, added);
            const bool isFirst = &run == &shaped.runs.front();
            added +=
                spreadDigits(run, scaled.font.letterSpacing(), isFirst ? leadingBlanks(text) : 0);
        }
        width += added;
    }
    shaped.width = width * scaled.factor;
    return shaped;
}

} // namespace

ShapedText shapeText(const QString &text, const FontSpec &font) {
    // Without a font for a script the toolkit draws boxes that it does not tell from letters.
    if (!FontFamilies::areMadeFor(text)) {
        OwnFonts::takeAll();
    }
    ShapedText shaped = shapedByKnownFonts(text, font);
    return lacksLetter(shaped) && OwnFonts::takeAll() ? shapedByKnownFonts(text, font) : shaped;
}

} // namespace zeph
