// SPDX-License-Identifier: MIT
#include "drawing/painting/QtTextMetrics.h"

#include "drawing/painting/GlyphOutlines.h"
#include "drawing/view/TextBreaking.h"

#include <memory>

namespace zeph {

namespace {

// Some twenty widgets hold about 150 texts, and each has a cut form besides.
constexpr qsizetype keptTexts = 1024;
constexpr qsizetype keptShapes = 192; // those of the first frame
constexpr qsizetype keptHeadlines = 8;
constexpr qsizetype keptParagraphs = 64;
constexpr qsizetype keptFonts = 64;

/// A long text counts for several, so that the cache is bounded in bytes too.
qsizetype cost(const QString &text) {
    return 1 + text.size() / 64;
}

} // namespace

size_t qHash(const QtTextMetrics::Key &key, size_t seed) {
    return qHashMulti(seed, key.text, key.width, key.font.size, static_cast<int>(key.font.weight),
                      static_cast<int>(key.font.design), key.font.italic, key.font.evenDigits,
                      key.font.letterSpacing);
}

QtTextMetrics::QtTextMetrics()
    : m_widths(keptTexts),
      m_shapes(keptShapes),
      m_inkStarts(keptHeadlines),
      m_elided(keptTexts),
      m_wrapped(keptParagraphs),
      m_boxes(keptFonts) {}

QtTextMetrics::~QtTextMetrics() = default;

double QtTextMetrics::width(const QString &text, const FontSpec &font) const {
    return m_widths.value({text, font}, [&] {
        auto *shape = new ShapedText(shapeText(text, font));
        const double width = shape->width;
        m_shapes.insert({text, font}, shape, cost(text));
        return width;
    });
}

ShapedText QtTextMetrics::shaped(const QString &text, const FontSpec &font) const {
    const std::unique_ptr<ShapedText> shape(m_shapes.take({text, font}));
    return shape ? *shape : shapeText(text, font);
}

LineBox QtTextMetrics::box(const FontSpec &font) const {
    return m_boxes.value({QString(), font}, [&] { return lineBox(font); });
}

QSizeF QtTextMetrics::size(const QString &text, const FontSpec &font) const {
    return {text.isEmpty() ? 0 : width(text, font), box(font).height};
}

double QtTextMetrics::inkStart(const QString &text, const FontSpec &font) const {
    return m_inkStarts.value({text, font}, [&] {
        const ShapedText shaped = shapeText(text, font);
        return shaped.runs.empty()
                   ? 0
                   : glyphOutlines(shaped.runs.front()).boundingRect().left() * shaped.factor;
    });
}

QString QtTextMetrics::elided(const QString &text, const FontSpec &font, double width) const {
    if (size(text, font).width() <= width) {
        return text;
    }
    // The many texts tried on the way are not worth keeping.
    const auto measure = [&font](const QString &part) { return shapeText(part, font).width; };
    return m_elided.value({text, font, width}, [&] { return elideTail(text, width, measure); });
}

QStringList QtTextMetrics::wrapped(const QString &text, const FontSpec &font, double width) const {
    const auto measure = [&font](const QString &part) { return shapeText(part, font).width; };
    return m_wrapped.value({text, font, width},
                           [&] { return breakIntoLines(text, width, measure); });
}

} // namespace zeph
