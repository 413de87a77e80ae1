// SPDX-License-Identifier: MIT
#pragma once

#include <QRegion>
#include <QSize>
#include <QString>

#include <xcb/xproto.h>

#include <cstdint>
#include <vector>

namespace zeph {

/// The picture of the program that draws the desktop's icons, and where it shows it.
struct RootPixmapTarget {
    xcb_pixmap_t pixmap = XCB_PIXMAP_NONE; ///< for all monitors; that program's, so it can vanish
    std::uint8_t depth = 24;
    QSize size = {};                        ///< in pixels of its own
    std::vector<xcb_window_t> windows = {}; ///< at the origin of the root, repainted from it

    /// False where that program shows it without having told of it on the root window.
    bool isAnnounced = true;

    int enlargement = 1; ///< device pixels of the windows for one of the picture, each way

    bool operator==(const RootPixmapTarget &) const = default;
};

/// The pixels that `rect` touches where each stands for `factor` by `factor` of its own.
QRect reduced(const QRect &rect, int factor);

/// The pixels of the picture for `region` of its windows, none too few.
QRegion inPicture(const RootPixmapTarget &target, const QRegion &region);

/// Why a wallpaper can't be painted into this picture, for people; empty where it can.
QString refusalOf(const RootPixmapTarget &target);

} // namespace zeph
