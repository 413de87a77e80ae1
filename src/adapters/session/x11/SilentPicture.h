// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>

#include <xcb/xproto.h>

#include <cstdint>
#include <optional>
#include <vector>

namespace zeph {

/// A pixmap, and what form it has.
struct PixmapForm {
    xcb_pixmap_t pixmap = XCB_PIXMAP_NONE;
    QSize size = {};
    std::uint8_t depth = 0;

    /// Whether pictures of the one can take the place of those of the other.
    bool isAlike(const PixmapForm &other) const {
        return size == other.size && depth == other.depth;
    }
    bool operator==(const PixmapForm &) const = default;
};

/// Tells when a desktop program shows another picture than the one that it announced. Caja does
/// when displays change: it takes a new pixmap with the first stroke in the new size, and announces
/// one only where the desktop grew and that stroke did not come first.
class SilentPicture {
public:
    /// The picture that is shown instead of `announced`; absent where that one is shown, or where
    /// it can't be told. `held` are the pixmaps that the program left behind in the server, as
    /// those of such pictures are; `whole` has the size of the program's window, which is the size
    /// that it takes the desktop for.
    std::optional<PixmapForm> take(const PixmapForm &announced, const std::vector<PixmapForm> &held,
                                   const PixmapForm &whole);

private:
    xcb_pixmap_t m_announced = XCB_PIXMAP_NONE;
    std::vector<xcb_pixmap_t> m_older; // left by somebody before the announcement
};

} // namespace zeph
