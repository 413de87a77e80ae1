// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/X11Reply.h"

#include <QByteArray>
#include <QColor>
#include <QSize>

#include <xcb/xcb.h>

namespace zeph {

/// Makes a pixmap as programs with a picture for the desktop do: on a connection of its own that
/// ends, of which the server holds on to nothing else. Answers its number.
inline xcb_pixmap_t leavePixmap(const QByteArray &display, QSize size, QColor colour) {
    xcb_connection_t *xcb = xcb_connect(display.constData(), nullptr);
    const xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(xcb)).data;
    const xcb_gcontext_t context = xcb_generate_id(xcb);
    const xcb_pixmap_t pixmap = xcb_generate_id(xcb);
    const auto width = static_cast<std::uint16_t>(size.width());
    const auto height = static_cast<std::uint16_t>(size.height());
    const std::uint32_t pixel = colour.rgba();
    const xcb_rectangle_t all{0, 0, width, height};
    xcb_create_pixmap(xcb, screen->root_depth, pixmap, screen->root, width, height);
    xcb_create_gc(xcb, context, pixmap, XCB_GC_FOREGROUND, &pixel);
    xcb_poly_fill_rectangle(xcb, pixmap, context, 1, &all);
    xcb_free_gc(xcb, context);
    xcb_set_close_down_mode(xcb, XCB_CLOSE_DOWN_RETAIN_PERMANENT);
    const X11Reply<xcb_get_input_focus_reply_t> fence(
        xcb_get_input_focus_reply(xcb, xcb_get_input_focus(xcb), nullptr));
    xcb_disconnect(xcb);
    return pixmap;
}

} // namespace zeph
