// SPDX-License-Identifier: MIT
#pragma once

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
    QSize size = {};                        ///< in device pixels
    std::vector<xcb_window_t> windows = {}; ///< at the origin of the root, repainted from it

    /// False where that program shows it without having told of it on the root window.
    bool isAnnounced = true;

    bool operator==(const RootPixmapTarget &) const = default;
};

/// Why a wallpaper can't be painted into this picture, for people; empty where it can.
QString refusalOf(const RootPixmapTarget &target);

} // namespace zeph
