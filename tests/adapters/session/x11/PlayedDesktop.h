// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/RootPixmapTarget.h"

#include <QByteArray>
#include <QColor>
#include <QRect>

#include <xcb/xcb.h>

#include <memory>

namespace zeph {

/// Another program that shows a picture on the desktop and an icon over it, as desktop programs do,
/// on a connection of its own and waiting until the server has done what it asks for.
class PlayedDesktop {
public:
    static constexpr QRect icon{1100, 300, 50, 50};
    static constexpr QRgb iconColour = 0xFFFFFF;

    /// With a picture of one colour. Of depth 24 it is on the screen too.
    PlayedDesktop(const QByteArray &display, QSize size, QColor colour, std::uint8_t depth = 24);

    RootPixmapTarget target() const;

    /// Paints into its picture and shows that.
    void paint(const QRect &rect, QColor colour);

    /// Tells that its picture is ready.
    void announce();

    /// Takes another pixmap for its picture and tells so.
    void renew(QSize size, QColor colour);

    /// Frees its pixmap, which it goes on naming.
    void freePicture();

    /// Takes another pixmap with the number of the one that it frees, as programs do that take each
    /// on a connection of its own. Does not tell of it.
    void reuseNumber(QColor colour);

private:
    void makePicture(QColor colour);
    void fillPicture(QColor colour);
    void flush();

    struct Disconnect {
        void operator()(xcb_connection_t *connection) const { xcb_disconnect(connection); }
    };
    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    xcb_screen_t *m_screen;
    QSize m_size;
    std::uint8_t m_depth;
    xcb_window_t m_window;
    xcb_pixmap_t m_picture = XCB_PIXMAP_NONE;
};

} // namespace zeph
