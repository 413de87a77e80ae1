// SPDX-License-Identifier: MIT
#include "drawing/painting/FontFamilies.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zeph::FontFamilies {

QStringList of(const FontSpec &spec, const std::function<bool(const QString &)> &isInstalled) {
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
    names << u"Inter"_s;
    const qsizetype typefaces = names.size();
    // Without a name of their own these scripts would come from a monospaced companion.
    names << u"Cantarell"_s << u"Noto Sans"_s << u"Noto Sans Arabic"_s << u"Noto Sans Hebrew"_s
          << u"DejaVu Sans"_s;
    // Emoji stand before the companions, which have outlines of some of them, but behind a family
    // that is there: their font has digits of its own.
    const auto first = std::find_if(names.cbegin(), names.cend(), isInstalled);
    if (first != names.cend()) {
        const qsizetype behind = std::max(typefaces, first - names.cbegin() + 1);
        names.insert(behind, u"Noto Color Emoji"_s);
    }
    return names;
}

QStringList all() {
    const auto everyFamily = [](const QString & /*family*/) { return true; };
    QStringList names;
    for (const FontDesign design : {FontDesign::standard, FontDesign::rounded}) {
        for (const FontWeight weight : {FontWeight::thin, FontWeight::light, FontWeight::regular,
                                        FontWeight::medium, FontWeight::semibold}) {
            FontSpec spec;
            spec.design = design;
            spec.weight = weight;
            names << of(spec, everyFamily);
        }
    }
    names.removeDuplicates();
    return names;
}

bool areMadeFor(const QString &text) {
    const auto codes = text.toUcs4();
    return std::all_of(codes.begin(), codes.end(), [](char32_t code) {
        switch (QChar::script(code)) {
        case QChar::Script_Common:
        case QChar::Script_Inherited:
        case QChar::Script_Latin:
        case QChar::Script_Greek:
        case QChar::Script_Cyrillic:
        case QChar::Script_Arabic:
        case QChar::Script_Hebrew:
            return true;
        default:
            return false;
        }
    });
}

QStringList needed() {
    return {u"Inter"_s, u"Quicksand"_s};
}

} // namespace zeph::FontFamilies
