// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/icons/DesktopIcons.h"

#include <QByteArray>

namespace zeph {

/// What of xfdesktop's settings its icons depend on.
struct XfdesktopIconSettings {
    bool areShown = true;
    double iconSize = 48; ///< points; the program's own default
    bool operator==(const XfdesktopIconSettings &) const = default;
};

/// The settings in the text of xfce4-desktop.xml, in which what was never changed is missing.
/// Damaged text counts up to the damage.
XfdesktopIconSettings xfdesktopSettingsIn(const QByteArray &xml);

/// The icons in the text of a file icons.screen*.rc.
DesktopIcons xfdesktopIconsIn(const QByteArray &rc, const XfdesktopIconSettings &settings);

} // namespace zeph
