// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace zeph {

/// Where a desktop and its user say how large a point is. The toolkit follows the same places in
/// the same way for its own windows, which ours have to match.
struct ScaleSettings {
    QByteArray resources;             ///< the X resources, of which "Xft.dpi" counts
    QByteArray factor = {};           ///< QT_SCALE_FACTOR
    QByteArray factorsOfScreens = {}; ///< QT_SCREEN_SCALE_FACTORS: "DP-1=1.5;DP-2=1" or "1.5;1"
};

/// The screen that a scale is asked for.
struct ScaledScreen {
    QString connector;
    qsizetype index = 0;             ///< in the order of screens
    std::optional<double> told = {}; ///< what the desktop tells of it beside the X server
};

/// Device pixels in a point on a screen. What stands for the screen by itself goes before what the
/// desktop tells, and that before the resources, where 96 dots an inch are one and fewer are not
/// less; the factor multiplies each of them.
double screenScale(const ScaleSettings &settings, const ScaledScreen &screen);

} // namespace zeph
