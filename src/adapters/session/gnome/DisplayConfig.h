// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusMessage>
#include <QPoint>
#include <QRect>
#include <QStringList>

#include <optional>
#include <vector>

namespace zeph {

/// The arrangement of monitors as GNOME's compositor tells it.
struct DisplayConfig {
    /// What its places and sizes count.
    enum class Layout {
        points, ///< X windows have points for pixels then, and are enlarged by the compositor
        pixels,
    };

    /// A part of the desktop; several monitors show the same one when they are mirrored.
    struct Part {
        QPoint place;
        double scale = 1; ///< device pixels in a point
        QStringList connectors = {};

        bool operator==(const Part &) const = default;
    };

    Layout layout = Layout::pixels;
    std::vector<Part> parts = {};

    bool operator==(const DisplayConfig &) const = default;
};

/// The arrangement in an answer to GetCurrentState of org.gnome.Mutter.DisplayConfig; absent for an
/// error, another form and another layout. A part whose scale no desktop has is left out.
std::optional<DisplayConfig> displayConfigIn(const QDBusMessage &answer);

/// How many pixels of an X window make a point on the monitor of the X server with this connector
/// and rectangle; absent where the arrangement does not have it. X servers of Wayland may name
/// connectors in their own way, so the place decides then.
std::optional<double> pixelsInPoint(const DisplayConfig &config, const QString &connector,
                                    const QRect &geometry);

} // namespace zeph
