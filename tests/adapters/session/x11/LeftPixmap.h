// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/X11Reply.h"

#include <QByteArray>
#include <QColor>
#include <QSize>

#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <array>
#include <stdexcept>

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

/// The same by another program.
inline xcb_pixmap_t leavePixmapOfAnother(const QByteArray &display, QSize size, QColor colour) {
    std::array<int, 2> pipe{};
    if (::pipe(pipe.data()) != 0) {
        throw std::runtime_error("no pipe for the test");
    }
    xcb_pixmap_t pixmap = XCB_PIXMAP_NONE;
    const pid_t program = ::fork();
    if (program == 0) {
        pixmap = leavePixmap(display, size, colour);
        const bool isTold = ::write(pipe[1], &pixmap, sizeof pixmap) == sizeof pixmap;
        ::_exit(isTold ? 0 : 1);
    }
    ::close(pipe[1]);
    const bool isTold = ::read(pipe[0], &pixmap, sizeof pixmap) == sizeof pixmap;
    ::close(pipe[0]);
    ::waitpid(program, nullptr, 0);
    if (!isTold) {
        throw std::runtime_error("no other program for the test");
    }
    return pixmap;
}

} // namespace zeph
