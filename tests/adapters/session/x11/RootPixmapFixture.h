// SPDX-License-Identifier: MIT
#pragma once

#include "PlayedDesktop.h"
#include "RecordOnRoot.h"
#include "X11Fixture.h"

#include "adapters/session/x11/X11DesktopPicture.h"
#include "adapters/session/x11/X11RootPixmapSurface.h"

namespace zeph {

inline const QPoint kAway(900, 600);

/// A display with a played desktop program and our surfaces in its picture.
class RootPixmapSurfaceTest : public X11Test {
protected:
    explicit RootPixmapSurfaceTest(std::uint8_t depth = 24,
                                   const XvfbSession::Options &options = {})
        : X11Test(options), desktop(session.display(), kWholeScreen.size(), Qt::darkRed, depth) {
        start();
    }

    /// As the program starts: on a connection of its own, which a kill ends.
    void start() {
        server.reset(); // of the connection that ends here
        connection = X11Connection::open(session.display());
        picture = std::make_unique<X11DesktopPicture>(*connection, [this] { ++reloads; });
        picture->setTarget(desktop.target());
    }
    std::unique_ptr<X11RootPixmapSurface> make(const QRect &area = kWholeScreen) {
        return std::make_unique<X11RootPixmapSurface>(
            *connection, *picture, screen(QString(), 1, area.width(), area.height(), area.x()));
    }
    std::unique_ptr<X11RootPixmapSurface> shown(QColor colour, const QRect &area = kWholeScreen) {
        auto surface = make(area);
        fill(*surface, colour);
        surface->orderFront();
        EXPECT_TRUE(waitForPixel(area.bottomRight(), colour));
        pixelsOf(*surface); // it is free then
        return surface;
    }
    bool waitForPicture(QPoint position, QColor colour) {
        return waitUntil(
            [&] { return client->pixelOf(desktop.target().pixmap, position) == colour.rgba(); });
    }
    bool hasRecord() const { return !client->numbers(client->root(), kRecordName).isEmpty(); }

    PlayedDesktop desktop;
    std::unique_ptr<X11DesktopPicture> picture;
    int reloads = 0;
};

} // namespace zeph
