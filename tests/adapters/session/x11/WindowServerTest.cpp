// SPDX-License-Identifier: MIT
#include "X11Fixture.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;

namespace zeph {

using WindowServerTest = X11Test;

namespace {

const QStringList kPicom{u"picom"_s,     u"--config"_s, u"/dev/null"_s,
                         u"--backend"_s, u"xrender"_s,  u"--no-fading-openclose"_s};

/// A server that serves few programs, and a desktop program that shares its picture.
class FullWindowServerTest : public X11Test {
protected:
    FullWindowServerTest() : X11Test({.serverArguments = {u"-maxclients"_s, u"64"_s}}) {}

    xcb_window_t startDesktop() {
        const auto desktop = client->show({.geometry = kWholeScreen,
                                           .type = kDesktopType,
                                           .instance = "xfdesktop",
                                           .name = "Xfdesktop"});
        client->setIds(client->root(), "XFCE_DESKTOP_WINDOW", XCB_ATOM_WINDOW, {desktop});
        sharePicture();
        return desktop;
    }
    void sharePicture() {
        client->setIds(client->root(), "_XROOTPMAP_ID", XCB_ATOM_PIXMAP,
                       {client->makePixmap(kWholeScreen.size(), 24)});
    }

    /// Connects until the server serves nobody else.
    bool fillServer() {
        while (m_others.size() < 64) {
            auto other = X11Connection::open(session.display());
            if (!other) {
                return true;
            }
            m_others.push_back(std::move(other));
        }
        return false;
    }

    void makeRoom() {
        m_others.clear();
        ASSERT_TRUE(waitUntil([&] { return X11Connection::open(session.display()) != nullptr; }));
    }

private:
    std::vector<std::unique_ptr<X11Connection>> m_others;
};

} // namespace

TEST_F(WindowServerTest, refusesTransparencyWithoutACompositor) {
    const auto surface = server->makeDesktopSurface(wholeScreen(), true);
    EXPECT_FALSE(surface->isTransparent());
    EXPECT_EQ(pixelsOf(*surface).format(), QImage::Format_RGB32);
    EXPECT_TRUE(waitUntil([&] { return client->depth(windowOf(*surface)) == 24; }));
}

TEST_F(WindowServerTest, tellsOfACompositorThatStartsAndStops) {
    int calls = 0;
    const Subscription told = server->subscribeToCompositing([&] { ++calls; });
    const pid_t picom = session.start(kPicom);
    ASSERT_TRUE(waitUntil([&] { return calls == 1; }));
    EXPECT_TRUE(server->makeDesktopSurface(wholeScreen(), true)->isTransparent());
    EXPECT_FALSE(server->makeDesktopSurface(wholeScreen(), false)->isTransparent());
    session.stop(picom);
    ASSERT_TRUE(waitUntil([&] { return calls == 2; }));
    EXPECT_FALSE(server->makeDesktopSurface(wholeScreen(), true)->isTransparent());
}

TEST_F(WindowServerTest, knowsOfACompositorThatRanBefore) {
    int calls = 0;
    const Subscription told = server->subscribeToCompositing([&] { ++calls; });
    session.start(kPicom);
    ASSERT_TRUE(waitUntil([&] { return calls == 1; }));
    const auto another = X11WindowServer::create(*connection);
    EXPECT_TRUE(another->makeDesktopSurface(wholeScreen(), true)->isTransparent());
}

TEST_F(WindowServerTest, letsTheDesktopShineThrough) {
    int calls = 0;
    const Subscription told = server->subscribeToCompositing([&] { ++calls; });
    session.start(kPicom);
    ASSERT_TRUE(waitUntil([&] { return calls == 1; }));
    const auto surface = server->makeDesktopSurface(wholeScreen(), true);
    ASSERT_EQ(pixelsOf(*surface).format(), QImage::Format_ARGB32_Premultiplied);
    surface->show([](QImage &frame) {
        frame.fill(Qt::transparent);
        for (int x = 0; x < 100; ++x) {
            for (int y = 0; y < 100; ++y) {
                frame.setPixelColor(x, y, QColor(0, 0, 255, 128));
            }
        }
        return QRegion(frame.rect());
    });
    client->show({.geometry = kWholeScreen, .colour = 0xFF0000});
    surface->orderFront();
    ASSERT_TRUE(waitUntil([&] { return client->isViewable(windowOf(*surface)); }));
    client->raise(windowOf(*surface)); // without a window manager it lies below all windows
    EXPECT_TRUE(waitUntil([&] {
        const QRgb mixed = client->pixel({50, 50});
        return std::abs(qRed(mixed) - 127) <= 2 && std::abs(qBlue(mixed) - 128) <= 2;
    })) << std::hex
        << client->pixel({50, 50});
    EXPECT_EQ(client->pixel({640, 400}), 0xFF0000U);
}

TEST_F(WindowServerTest, coversNothingWithoutAWindowManager) {
    client->show({.geometry = {100, 100, 200, 150}, .colour = 0xFF0000});
    const auto surface = showSurface(Qt::blue);
    EXPECT_EQ(client->pixel({200, 175}), 0xFF0000U);
    EXPECT_EQ(client->stacking().first(), windowOf(*surface));
}

TEST_F(WindowServerTest, keepsItsPlaceWhenAWindowManagerStartsLater) {
    const auto base =
        client->show({.geometry = kWholeScreen, .colour = 0x552200, .type = kDesktopType});
    const auto normal = client->show({.geometry = {100, 100, 200, 150}, .colour = 0xFF0000});
    const auto surface = server->makeDesktopSurface(wholeScreen(), false);
    fill(*surface, Qt::blue);
    surface->orderFront();
    ASSERT_TRUE(session.startOpenbox());
    ASSERT_TRUE(waitForPixel({640, 400}, Qt::blue));
    EXPECT_TRUE(waitForPixel(client->geometry(normal).center(), Qt::red));
    click({640, 400});
    EXPECT_TRUE(waitUntil([&] { return client->takeClicks(base) > 0; }));
}

TEST_F(WindowServerTest, handsPicturesToPlasmaOnceThatIsAllowed) {
    const auto desktop = client->show({.geometry = kWholeScreen,
                                       .type = kDesktopType,
                                       .instance = "plasmashell",
                                       .name = "plasmashell"});
    client->setIds(client->root(), "_NET_CLIENT_LIST_STACKING", XCB_ATOM_WINDOW, {desktop});
    server->settle();
    ASSERT_TRUE(
        waitUntil([&] { return server->drawingWay().reason.contains(u"until you allow"_s); }));
    int changes = 0;
    const Subscription ways = server->subscribeToDrawingWay([&] { ++changes; });
    server->permitPlasma({true, {}});
    EXPECT_EQ(server->drawingWay().mechanism, DrawingMechanism::plasmaPictures);
    EXPECT_EQ(changes, 1) << "at once, before the first surface";
    server->permitPlasma({false, u"Plasma's shell does not run"_s});
    EXPECT_EQ(server->drawingWay().mechanism, DrawingMechanism::desktopWindow);
    EXPECT_EQ(changes, 2);
}

TEST_F(WindowServerTest, coversTheDisplaysThatADesktopProgramLeavesBare) {
    const auto desktop = client->show({.geometry = {0, 0, 640, 800},
                                       .type = kDesktopType,
                                       .instance = "pcmanfm",
                                       .name = "Pcmanfm"});
    const auto share = [&](QSize size) {
        client->setIds(client->root(), "_XROOTPMAP_ID", XCB_ATOM_PIXMAP,
                       {client->makePixmap(size, 24)});
    };
    client->setIds(client->root(), "_NET_CLIENT_LIST_STACKING", XCB_ATOM_WINDOW, {desktop});
    share({640, 800});
    server->settle();
    const auto reasonHas = [&](QStringView part) {
        return waitUntil([&] { return server->drawingWay().reason.contains(part); });
    };
    EXPECT_TRUE(reasonHas(u"one display only"));
    EXPECT_EQ(server->drawingWay().mechanism, DrawingMechanism::desktopWindow);
    share(kWholeScreen.size());
    EXPECT_TRUE(reasonHas(u"paints into it")) << "the other display was unplugged";
    EXPECT_EQ(server->drawingWay().mechanism, DrawingMechanism::rootPixmap);
}

TEST_F(WindowServerTest, drawsAWindowOnceTheDesktopProgramFreedItsPictureWithoutAWord) {
    const auto desktop = client->show({.geometry = {QPoint(), kWholeScreen.size()},
                                       .type = kDesktopType,
                                       .instance = "pcmanfm",
                                       .name = "Pcmanfm"});
    const auto picture = client->makePixmap(kWholeScreen.size(), 24);
    client->setIds(client->root(), "_XROOTPMAP_ID", XCB_ATOM_PIXMAP, {picture});
    client->setIds(client->root(), "_NET_CLIENT_LIST_STACKING", XCB_ATOM_WINDOW, {desktop});
    server->settle();
    const auto becomes = [&](DrawingMechanism mechanism) {
        return waitUntil([&] { return server->drawingWay().mechanism == mechanism; });
    };
    ASSERT_TRUE(becomes(DrawingMechanism::rootPixmap));
    const auto surface = server->makeDesktopSurface(wholeScreen(), false);
    surface->orderFront();
    client->freePixmap(picture);                  // a plain colour was chosen
    ASSERT_TRUE(client->size(picture).isEmpty()); // by now, whatever others ask for
    fill(*surface, Qt::red);
    EXPECT_TRUE(becomes(DrawingMechanism::desktopWindow));
}

TEST_F(WindowServerTest, restsBeforeItChoosesAnewSoThatAllThatStartsIsCountedInOnce) {
    server->settle();
    int calls = 0;
    const Subscription told = server->subscribeToDrawingWay([&] { ++calls; });
    QElapsedTimer rest;
    rest.start();
    // A manager that starts tells of itself bit by bit.
    const auto check = client->show({.geometry = {0, 0, 1, 1}, .overridesRedirect = true});
    for (const auto window : {check, client->root()}) {
        client->setIds(window, "_NET_SUPPORTING_WM_CHECK", XCB_ATOM_WINDOW, {check});
    }
    client->setIds(client->root(), "_NET_SUPPORTED", XCB_ATOM_ATOM,
                   {client->atom("_NET_WM_WINDOW_TYPE_DESKTOP")});
    ASSERT_TRUE(waitUntil([&] { return calls > 0; }));
    EXPECT_GE(rest.elapsed(), 185) << "milliseconds, of timers that may be a twentieth early";
    EXPECT_TRUE(server->drawingWay().reason.contains(u"knows desktop windows"_s));
}

TEST_F(WindowServerTest, tellsOnceThatTheServerWentAway) {
    int calls = 0;
    const Subscription told = server->subscribeToLoss([&] { ++calls; });
    const auto surface = showSurface(Qt::blue);
    session.killServer();
    ASSERT_TRUE(waitUntil([&] { return calls > 0; }));
    fill(*surface, Qt::red);
    surface->orderOut();
    surface->setScreen(screen(QString(), 1, 100, 100));
    runLoopFor(std::chrono::milliseconds(50));
    EXPECT_EQ(calls, 1);
}

TEST_F(WindowServerTest, noticesTheLossWithoutBeingAskedForAnything) {
    int calls = 0;
    const Subscription told = server->subscribeToLoss([&] { ++calls; });
    session.killServer();
    EXPECT_TRUE(waitUntil([&] { return calls == 1; }));
}

TEST(X11Connection, isNotMadeWithoutADisplay) {
    EXPECT_EQ(X11Connection::open(":999999"), nullptr);
}

TEST_F(FullWindowServerTest, drawsAWindowOnceThereIsNoRoomForACopyOfThePicture) {
    ASSERT_TRUE(fillServer());
    server->settle();
    int calls = 0;
    const Subscription told = server->subscribeToDrawingWay([&] { ++calls; });
    startDesktop();
    ASSERT_TRUE(
        waitUntil([&] { return server->drawingWay().reason.contains(u"no room for a copy"_s); }));
    EXPECT_EQ(server->drawingWay().mechanism, DrawingMechanism::desktopWindow);
    const auto surface = server->makeDesktopSurface(wholeScreen(), false);
    EXPECT_NE(dynamic_cast<X11DesktopSurface *>(surface.get()), nullptr);
    const auto triesAgain = [&](std::chrono::milliseconds patience) {
        const int untilThen = calls;
        sharePicture();
        return waitUntil([&] { return calls == untilThen + 2; }, patience);
    };
    EXPECT_TRUE(triesAgain(std::chrono::seconds(10))) << "there may be room by now";
    EXPECT_TRUE(triesAgain(std::chrono::seconds(10)));
    EXPECT_FALSE(triesAgain(std::chrono::milliseconds(600))) << "it does not try for ever";
    EXPECT_EQ(server->drawingWay().mechanism, DrawingMechanism::desktopWindow);
}

TEST_F(FullWindowServerTest, paintsIntoThePictureOnceThereIsRoomForACopy) {
    ASSERT_TRUE(fillServer());
    server->settle();
    startDesktop();
    ASSERT_TRUE(
        waitUntil([&] { return server->drawingWay().reason.contains(u"no room for a copy"_s); }));
    makeRoom();
    EXPECT_EQ(server->drawingWay().mechanism, DrawingMechanism::desktopWindow);
    sharePicture();
    EXPECT_TRUE(
        waitUntil([&] { return server->drawingWay().mechanism == DrawingMechanism::rootPixmap; }));
    const auto surface = server->makeDesktopSurface(wholeScreen(), false);
    EXPECT_EQ(dynamic_cast<X11DesktopSurface *>(surface.get()), nullptr);
}

TEST_F(FullWindowServerTest, mendsWhatAKilledRunLeftWhenItTurnsToAWindow) {
    XTestClient keeper(session.display());
    const auto kept = keeper.makePixmap(kWholeScreen.size(), 24);
    ASSERT_TRUE(fillServer());
    server->settle();
    const auto desktop = startDesktop();
    const auto picture = client->numbers(client->root(), "_XROOTPMAP_ID").value(0);
    const auto mark = kept + 1; // of a picture that is gone
    client->setNumbers(client->root(), "_TAVI_EARLIER_PICTURE",
                       {kept, mark, picture, 1280, 800, 24, desktop});
    EXPECT_TRUE(waitUntil([&] { return client->size(kept).isEmpty(); }));
    EXPECT_TRUE(client->numbers(client->root(), "_TAVI_EARLIER_PICTURE").isEmpty());
    EXPECT_EQ(server->drawingWay().mechanism, DrawingMechanism::desktopWindow);
}

} // namespace zeph
