// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

namespace zeph {

/// Where a desktop and its user say how large a point is. The toolkit follows the same places in
/// the same way for its own windows, which ours have to match.
struct ScaleSettings {
    QByteArray resources;             ///< the X resources, of which "Xft.dpi" counts
    QByteArray factor = {};           ///< QT_SCALE_FACTOR
    QByteArray factorsOfScreens = {}; ///< QT_SCREEN_SCALE_FACTORS: "DP-1=1.5;DP-2=1" or "1.5;1"
};

/// Device pixels in a point on the screen with this connector and place in the order of screens.
/// What stands for the screen by itself goes before the resources, where 96 dots an inch are one
/// and fewer are not less; the factor multiplies either.
double screenScale(const ScaleSettings &settings, const QString &connector, qsizetype index);

} // namespace zeph
