// SPDX-License-Identifier: MIT
#include "presentation/painting/QtFonts.h"

#include <QFontMetricsF>
#include <QStringList>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

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

QStringList families(const FontSpec &spec) {
    QStringList names;
    if (spec.design == FontDesign::rounded) {
        // The static files of this typeface name their weights as families of their own.
        if (spec.weight == FontWeight::thin || spec.weight == FontWeight::light) {
            names << u"Quicksand Light"_s;
        } else if (spec.weight == FontWeight::medium) {
            names << u"Quicksand Medium"_s;
        }
        names << u"Quicksand"_s << u"Nunito"_s << u"Comfortaa"_s;
    }
    return names << u"Inter"_s << u"Cantarell"_s << u"Noto Sans"_s << u"DejaVu Sans"_s;
}

QFont fontOfPixels(const FontSpec &spec, int pixels) {
    QFont font(families(spec));
    font.setStyleHint(QFont::SansSerif, static_cast<QFont::StyleStrategy>(
                                            QFont::PreferAntialias | QFont::NoSubpixelAntialias));
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setWeight(qtWeight(spec.weight));
    font.setItalic(spec.italic);
    font.setPixelSize(pixels);
    return font;
}

} // namespace

ScaledFont qtFont(const FontSpec &spec) {
    const int pixels = std::max(1, static_cast<int>(std::lround(spec.size)));
    ScaledFont result{fontOfPixels(spec, pixels), spec.size / pixels};
    if (spec.letterSpacing != 0) {
        result.font.setLetterSpacing(QFont::AbsoluteSpacing, spec.letterSpacing / result.factor);
    }
    if (spec.evenDigits) {
        result.font.setKerning(false); // a pair of digits must not stand closer than another
    }
    return result;
}

LineBox lineBox(const FontSpec &spec) {
    // Measured large, because metrics are rounded to whole pixels.
    constexpr int reference = 1000;
    const QFontMetricsF metrics(fontOfPixels(spec, reference));
    const double ascent = metrics.ascent() * spec.size / reference;
    const double descent = metrics.descent() * spec.size / reference;
    const double height = std::ceil(ascent + descent);
    return {height, (height - ascent - descent) / 2 + ascent};
}

} // namespace zeph
