// SPDX-License-Identifier: MIT
#include "drawing/painting/QtFonts.h"

#include "drawing/painting/FontFamilies.h"

#include <QFontDatabase>
#include <QRawFont>
#include <QtEndian>

#include <algorithm>
#include <cmath>

namespace zeph {

namespace {

QFont::Weight qtWeight(FontWeight weight) {
    switch (weight) {
    case FontWeight::thin:
        return QFont::Thin;
    case FontWeight::light:
        return QFont::Light;
    case FontWeight::medium:
        return QFont::Medium;
    case FontWeight::semibold:
        return QFont::DemiBold;
    case FontWeight::regular:
        break;
    }
    return QFont::Normal;
}

bool isInstalled(const QString &family) {
    static const QStringList installed = QFontDatabase::families();
    return installed.contains(family);
}

QFont fontOfPixels(const FontSpec &spec, int pixels) {
    QFont font(FontFamilies::of(spec, isInstalled));
    font.setStyleHint(QFont::SansSerif, static_cast<QFont::StyleStrategy>(
                                            QFont::PreferAntialias | QFont::NoSubpixelAntialias));
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setWeight(qtWeight(spec.weight));
    font.setItalic(spec.italic);
    font.setPixelSize(pixels);
    return font;
}

/// How far letters reach above and below the baseline, in parts of the font size.
struct Extent {
    double ascent = 0;
    double descent = 0;
};

/// From the font's own table: what Qt tells is rounded to whole pixels.
Extent unroundedExtent(const QRawFont &font) {
    const QByteArray header = font.fontTable("hhea");
    constexpr qsizetype ascenderAt = 4;
    constexpr qsizetype descenderAt = 6;
    if (header.size() < descenderAt + 2 || font.unitsPerEm() <= 0) {
        return {font.ascent() / font.pixelSize(), font.descent() / font.pixelSize()};
    }
    const double ascender = qFromBigEndian<qint16>(header.constData() + ascenderAt);
    const double descender = qFromBigEndian<qint16>(header.constData() + descenderAt);
    return {ascender / font.unitsPerEm(), -descender / font.unitsPerEm()};
}

} // namespace

ScaledFont qtFont(const FontSpec &spec) {
    const int pixels = std::max(1, static_cast<int>(std::lround(spec.size)));
    ScaledFont result{fontOfPixels(spec, pixels), spec.size / pixels};
    if (spec.letterSpacing != 0) {
        result.font.setLetterSpacing(QFont::AbsoluteSpacing, spec.letterSpacing / result.factor);
    }
    return result;
}

LineBox lineBox(const FontSpec &spec) {
    const ScaledFont scaled = qtFont(spec);
    const Extent extent = unroundedExtent(QRawFont::fromFont(scaled.font));
    const double ascent = extent.ascent * spec.size;
    const double descent = extent.descent * spec.size;
    const double height = std::ceil(ascent + descent);
    return {height, (height - ascent - descent) / 2 + ascent};
}

} // namespace zeph
