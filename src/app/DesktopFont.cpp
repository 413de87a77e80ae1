// SPDX-License-Identifier: MIT
#include "app/DesktopFont.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

// Of Qt's theme for desktops that it does not know (QGenericUnixTheme).
const QString kUntoldFamily = u"Sans Serif"_s;
constexpr int kUntoldPoints = 9;

constexpr int kDesignedPoints = 10;

} // namespace

QFont desktopFont(const QFont &told) {
    QFont font = told;
    if (told.family() == kUntoldFamily && told.pointSize() == kUntoldPoints) {
        font.setPointSize(kDesignedPoints);
    }
    return font;
}

} // namespace zeph
