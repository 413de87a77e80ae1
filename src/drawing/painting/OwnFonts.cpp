// SPDX-License-Identifier: MIT
#include "drawing/painting/OwnFonts.h"

#include "drawing/painting/FontFamilies.h"

#include <QFile>
#include <QFontDatabase>
#include <QLocale>
#include <QStringList>

#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace zeph::OwnFonts {

namespace {

struct DestroyConfig {
    void operator()(FcConfig *config) const { FcConfigDestroy(config); }
};
using Config = std::unique_ptr<FcConfig, DestroyConfig>;

bool isFiltered = false;

/// The folders and the cache are those that every configuration of the system names.
QByteArray configuration() {
    QString text = u"<?xml version=\"1.0\"?><!DOCTYPE fontconfig SYSTEM \"fonts.dtd\"><fontconfig>"
                   "<dir>/usr/share/fonts</dir><dir>/usr/local/share/fonts</dir>"
                   "<dir prefix=\"xdg\">fonts</dir><cachedir>/var/cache/fontconfig</cachedir>"
                   "<cachedir prefix=\"xdg\">fontconfig</cachedir><selectfont><acceptfont>"_s;
    for (const QString &family : FontFamilies::all()) {
        text += u"<pattern><patelt name=\"family\"><string>%1</string></patelt></pattern>"_s.arg(
            family);
    }
    text += u"</acceptfont><rejectfont>"_s;
    for (const char *const either : {"true", "false"}) {
        text += u"<pattern><patelt name=\"scalable\"><bool>%1</bool></patelt></pattern>"_s.arg(
            QLatin1StringView(either));
    }
    return (text + u"</rejectfont></selectfont></fontconfig>"_s).toUtf8();
}

bool holds(FcConfig *config, const QString &family) {
    const FcFontSet *fonts = FcConfigGetFonts(config, FcSetSystem);
    const QByteArray name = family.toUtf8();
    return fonts != nullptr &&
           std::any_of(fonts->fonts, fonts->fonts + fonts->nfont, [&](FcPattern *font) {
               FcChar8 *found = nullptr;
               for (int at = 0; FcPatternGetString(font, FC_FAMILY, at, &found) == FcResultMatch;
                    ++at) {
                   if (name == reinterpret_cast<const char *>(found)) {
                       return true;
                   }
               }
               return false;
           });
}

bool coversTheLanguage() {
    switch (QLocale::system().script()) {
    case QLocale::LatinScript:
    case QLocale::CyrillicScript:
    case QLocale::GreekScript:
    case QLocale::AnyScript:
        return true;
    default:
        return false;
    }
}

/// A font's file, whichever: the toolkit looks at the fonts anew when one is added and removed.
QString anyFontFile() {
    const FcFontSet *fonts = FcConfigGetFonts(nullptr, FcSetSystem);
    FcChar8 *path = nullptr;
    return fonts != nullptr && fonts->nfont > 0 &&
                   FcPatternGetString(fonts->fonts[0], FC_FILE, 0, &path) == FcResultMatch
               ? QFile::decodeName(reinterpret_cast<const char *>(path))
               : QString();
}

} // namespace

bool use() {
    // A configuration of the user's own choice is not second-guessed.
    if (!coversTheLanguage() || qEnvironmentVariableIsSet("FONTCONFIG_FILE") ||
        qEnvironmentVariableIsSet("FONTCONFIG_PATH")) {
        return false;
    }
    const Config config(FcConfigCreate());
    const QByteArray text = configuration();
    if (!config ||
        FcConfigParseAndLoadFromMemory(config.get(),
                                       reinterpret_cast<const FcChar8 *>(text.constData()),
                                       FcFalse) == FcFalse ||
        FcConfigBuildFonts(config.get()) == FcFalse) {
        return false;
    }
    for (const QString &family : FontFamilies::needed()) {
        if (!holds(config.get(), family)) {
            return false;
        }
    }
    isFiltered = FcConfigSetCurrent(config.get()) == FcTrue;
    return isFiltered;
}

bool takeAll() {
    if (!std::exchange(isFiltered, false)) {
        return false;
    }
    const Config config(FcInitLoadConfigAndFonts());
    if (!config || FcConfigSetCurrent(config.get()) == FcFalse) {
        return false;
    }
    const int added = QFontDatabase::addApplicationFont(anyFontFile());
    if (added >= 0) {
        QFontDatabase::removeApplicationFont(added);
    }
    return true;
}

} // namespace zeph::OwnFonts
