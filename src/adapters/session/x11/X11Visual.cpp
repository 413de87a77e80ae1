// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11Visual.h"

#include "adapters/session/x11/X11Connection.h"

#include <QSysInfo>

#include <algorithm>
#include <vector>

namespace zeph {

namespace {

bool hasOurByteOrder(const xcb_setup_t &setup) {
    const bool isLittle = setup.image_byte_order == XCB_IMAGE_ORDER_LSB_FIRST;
    return isLittle == (QSysInfo::ByteOrder == QSysInfo::LittleEndian);
}

bool hasFourBytesAPixel(const xcb_setup_t &setup, std::uint8_t depth) {
    const auto *first = xcb_setup_pixmap_formats(&setup);
    return std::any_of(first, first + xcb_setup_pixmap_formats_length(&setup),
                       [depth](const xcb_format_t &format) {
                           return format.depth == depth && format.bits_per_pixel == 32;
                       });
}

bool isOurLayout(const xcb_visualtype_t &visual) {
    return visual._class == XCB_VISUAL_CLASS_TRUE_COLOR && visual.red_mask == 0xFF0000 &&
           visual.green_mask == 0xFF00 && visual.blue_mask == 0xFF;
}

std::vector<xcb_visualid_t> visualsOf(const xcb_screen_t &screen, std::uint8_t depth) {
    std::vector<xcb_visualid_t> found;
    for (auto depths = xcb_screen_allowed_depths_iterator(&screen); depths.rem > 0;
         xcb_depth_next(&depths)) {
        if (depths.data->depth != depth) {
            continue;
        }
        for (auto visuals = xcb_depth_visuals_iterator(depths.data); visuals.rem > 0;
             xcb_visualtype_next(&visuals)) {
            if (isOurLayout(*visuals.data)) {
                found.push_back(visuals.data->visual_id);
            }
        }
    }
    return found;
}

} // namespace

std::optional<X11Visual> findVisual(const X11Connection &connection, std::uint8_t depth) {
    const auto &setup = *xcb_get_setup(connection.xcb());
    const auto visuals = visualsOf(connection.screen(), depth);
    if (visuals.empty() || !hasOurByteOrder(setup) || !hasFourBytesAPixel(setup, depth)) {
        return std::nullopt;
    }
    const auto root = std::find(visuals.begin(), visuals.end(), connection.screen().root_visual);
    return X11Visual{root == visuals.end() ? visuals.front() : *root, depth};
}

} // namespace zeph
