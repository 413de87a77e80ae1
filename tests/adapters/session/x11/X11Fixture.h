// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/X11Connection.h"
#include "adapters/session/x11/X11DesktopSurface.h"
#include "adapters/session/x11/X11WindowServer.h"
#include "support/FakeScreens.h"
#include "support/WaitUntil.h"
#include "support/XTestClient.h"
#include "support/XvfbSession.h"

#include <gtest/gtest.h>

#include <memory>

namespace zeph {

inline const QRect kWholeScreen(0, 0, 1280, 800);
inline const char *const kDesktopType = "_NET_WM_WINDOW_TYPE_DESKTOP";

/// Fills all pixels and shows those of `damage`.
inline void fill(DesktopSurface &surface, QColor colour, const QRegion &damage) {
    surface.show([colour, damage](QImage &frame) {
        frame.fill(colour);
        return damage;
    });
}

/// Fills the surface and shows all of it.
inline void fill(DesktopSurface &surface, QColor colour) {
    surface.show([colour](QImage &frame) {
        frame.fill(colour);
        return QRegion(frame.rect());
    });
}

/// Looks at the pixels of a surface without changing them; null until the surface is free.
inline std::shared_ptr<QImage> lookAt(DesktopSurface &surface) {
    const auto pixels = std::make_shared<QImage>(); // the surface may look at them later
    surface.show([pixels](QImage &frame) {
        *pixels = frame.copy();
        return QRegion();
    });
    return pixels;
}

/// The pixels of a surface, once it is free.
inline QImage pixelsOf(DesktopSurface &surface) {
    const auto pixels = lookAt(surface);
    EXPECT_TRUE(waitUntil([&] { return !pixels->isNull(); }));
    return *pixels;
}

/// A display of its own with our connection and another program's.
class X11Test : public testing::Test {
protected:
    explicit X11Test(const XvfbSession::Options &options = {}) : session(options) {
        connection = X11Connection::open(session.display());
        if (!connection) {
            throw std::runtime_error("Xvfb did not start");
        }
        client = std::make_unique<XTestClient>(session.display());
        server = X11WindowServer::create(*connection);
    }

    static Screen wholeScreen() {
        return screen(QString(), 1, kWholeScreen.width(), kWholeScreen.height());
    }

    /// A visible surface of one colour over the whole screen.
    std::unique_ptr<DesktopSurface> showSurface(QColor colour) {
        auto surface = server->makeDesktopSurface(wholeScreen(), false);
        fill(*surface, colour);
        surface->orderFront();
        EXPECT_TRUE(waitForPixel({640, 400}, colour));
        pixelsOf(*surface);
        return surface;
    }

    bool waitForPixel(QPoint position, QColor colour) {
        return waitUntil([&] { return client->pixel(position) == (colour.rgb() & 0xFFFFFF); });
    }

    static xcb_window_t windowOf(const DesktopSurface &surface) {
        return dynamic_cast<const X11DesktopSurface &>(surface).window();
    }

    void click(QPoint position, int button = 1) {
        session.run({QStringLiteral("xdotool"), QStringLiteral("mousemove"),
                     QString::number(position.x()), QString::number(position.y()),
                     QStringLiteral("click"), QString::number(button)});
    }

    XvfbSession session;
    std::unique_ptr<X11Connection> connection;
    std::unique_ptr<XTestClient> client;
    std::unique_ptr<X11WindowServer> server;
};

/// The same with a window manager.
class X11OpenboxTest : public X11Test {
protected:
    X11OpenboxTest() {
        if (!session.startOpenbox()) {
            throw std::runtime_error("openbox did not start");
        }
    }
};

} // namespace zeph
