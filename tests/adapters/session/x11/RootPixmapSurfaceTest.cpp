// SPDX-License-Identifier: MIT
#include "X11Fixture.h"

#include "PlayedDesktop.h"

#include "adapters/session/x11/X11DesktopPicture.h"
#include "adapters/session/x11/X11RootPixmapSurface.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const QPoint kAway(900, 600);
const QByteArray kRecordName = "_TAVI_EARLIER_PICTURE";

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

class Depth32Test : public RootPixmapSurfaceTest {
protected:
    Depth32Test() : RootPixmapSurfaceTest(32) {}
};

class UnsharedRootPixmapTest : public RootPixmapSurfaceTest {
protected:
    UnsharedRootPixmapTest()
        : RootPixmapSurfaceTest(24, {.serverArguments = {u"-extension"_s, u"MIT-SHM"_s}}) {}
};

} // namespace

TEST_F(RootPixmapSurfaceTest, liesBeneathTheIcons) {
    const auto surface = shown(Qt::blue);
    EXPECT_EQ(client->pixel(PlayedDesktop::icon.center()), PlayedDesktop::iconColour);
    EXPECT_EQ(client->pixel(PlayedDesktop::icon.topLeft() - QPoint(1, 1)), 0x0000FFU);
    EXPECT_TRUE(client->findAll("Tavi").isEmpty()) << "it has no window";
}

TEST_F(RootPixmapSurfaceTest, paintsOnlyTheDamage) {
    const auto surface = shown(Qt::blue);
    fill(*surface, Qt::green, QRect(200, 100, 50, 40));
    ASSERT_TRUE(waitForPixel({249, 139}, Qt::green));
    EXPECT_EQ(client->pixel({250, 139}), 0x0000FFU);
    EXPECT_EQ(client->pixel({249, 140}), 0x0000FFU);
}

TEST_F(RootPixmapSurfaceTest, liesInItsPartOfAPictureOverAllMonitors) {
    const auto left = shown(Qt::blue, {0, 0, 640, 800});
    const auto right = shown(Qt::green, {640, 0, 640, 800});
    fill(*right, Qt::yellow, QRect(10, 10, 20, 20));
    EXPECT_TRUE(waitForPixel({651, 11}, Qt::yellow));
    EXPECT_EQ(client->pixel({639, 799}), 0x0000FFU);
    EXPECT_EQ(client->pixel({640, 799}), 0x00FF00U);
}

TEST_F(RootPixmapSurfaceTest, showsTheEarlierPictureWhileItIsOut) {
    const auto surface = shown(Qt::blue);
    surface->orderOut();
    EXPECT_TRUE(waitForPixel(kAway, Qt::darkRed));
    fill(*surface, Qt::green);
    runLoopFor(std::chrono::milliseconds(50));
    EXPECT_EQ(client->pixel(kAway), QColor(Qt::darkRed).rgb() & 0xFFFFFF);
    surface->orderFront();
    EXPECT_TRUE(waitForPixel(kAway, Qt::green));
}

TEST_F(RootPixmapSurfaceTest, aSecondSurfaceInItsPlaceKeepsItsPixelsWhenTheFirstGoes) {
    auto first = shown(Qt::blue);
    const auto second = shown(Qt::green);
    first->orderOut();
    first.reset();
    runLoopFor(std::chrono::milliseconds(50));
    EXPECT_EQ(client->pixel(kAway), 0x00FF00U);
}

TEST_F(RootPixmapSurfaceTest, movesWithItsScreenAndLeavesTheEarlierPictureBehind) {
    const auto surface = shown(Qt::blue, {0, 0, 640, 800});
    surface->setScreen(screen(QString(), 1, 640, 800, 640));
    EXPECT_TRUE(waitForPixel({1279, 799}, Qt::blue)) << "its pixels are kept";
    EXPECT_TRUE(waitForPixel({639, 400}, Qt::darkRed));
    surface->setScreen(screen(QString(), 1, 320, 800, 640));
    EXPECT_EQ(pixelsOf(*surface).pixel(5, 5), qRgb(0, 0, 0));
    fill(*surface, Qt::green);
    EXPECT_TRUE(waitForPixel({959, 799}, Qt::green));
    EXPECT_TRUE(waitForPixel({960, 799}, Qt::darkRed));
}

TEST_F(RootPixmapSurfaceTest, comesBackWhenTheProgramPaintedItsOwnPictureAnew) {
    const auto surface = shown(Qt::blue);
    desktop.paint(kWholeScreen, Qt::darkGreen);
    desktop.announce();
    EXPECT_TRUE(waitForPixel(kAway, Qt::blue));
    surface->orderOut();
    EXPECT_TRUE(waitForPixel(kAway, Qt::darkGreen)) << "that is the earlier picture now";
}

TEST_F(RootPixmapSurfaceTest, comesBackWhenTheProgramDoesNotAnnounceWhatItPainted) {
    const auto surface = shown(Qt::blue);
    desktop.paint({800, 500, 200, 200}, Qt::darkGreen);
    EXPECT_TRUE(waitForPixel(kAway, Qt::blue));
    surface->orderOut();
    EXPECT_TRUE(waitForPixel(kAway, Qt::darkGreen));
    EXPECT_TRUE(waitForPixel({700, 600}, Qt::darkRed));
}

TEST_F(RootPixmapSurfaceTest, tellsItsOwnPixelsFromThoseOfTheProgram) {
    const auto surface = shown(Qt::blue);
    // As a program does that paints one monitor after the other and announces each.
    desktop.paint({0, 0, 640, 800}, Qt::darkGreen);
    desktop.announce();
    ASSERT_TRUE(waitForPixel({320, 400}, Qt::blue));
    fill(*surface, Qt::green);
    ASSERT_TRUE(waitForPixel({320, 400}, Qt::green));
    surface->orderOut();
    EXPECT_TRUE(waitForPixel({639, 600}, Qt::darkGreen));
    EXPECT_TRUE(waitForPixel({640, 600}, Qt::darkRed));
}

TEST_F(RootPixmapSurfaceTest, keepsWhatWasPaintedWhileItWasOut) {
    const auto surface = shown(Qt::blue);
    surface->orderOut();
    desktop.paint(kWholeScreen, Qt::darkGreen);
    desktop.announce();
    surface->orderFront();
    ASSERT_TRUE(waitForPixel(kAway, Qt::blue));
    surface->orderOut();
    EXPECT_TRUE(waitForPixel(kAway, Qt::darkGreen));
}

TEST_F(RootPixmapSurfaceTest, ownPixelsWakeNobody) {
    const auto surface = shown(Qt::blue);
    for (int i = 0; i < 3; ++i) {
        fill(*surface, Qt::green, QRect(200, 100, 300, 200));
    }
    connection->intern("ZEPH_TEST"); // whatever the server has to say has come with the answer
    const X11Reply<xcb_generic_event_t> event(xcb_poll_for_queued_event(connection->xcb()));
    EXPECT_EQ(event, nullptr);
}

TEST_F(RootPixmapSurfaceTest, goesOnInAnotherPictureOfTheProgram) {
    const auto surface = shown(Qt::blue);
    desktop.renew({1280, 700}, Qt::darkGreen);
    fill(*surface, Qt::green); // into nothing that is there
    picture->setTarget(desktop.target());
    ASSERT_TRUE(waitForPixel({1279, 699}, Qt::green));
    surface->orderOut();
    EXPECT_TRUE(waitForPixel({1279, 699}, Qt::darkGreen));
}

TEST_F(RootPixmapSurfaceTest, canBePaintedAfterThePictureVanished) {
    const auto surface = shown(Qt::blue);
    desktop.freePicture();
    fill(*surface, Qt::green); // more than is sent without shared memory
    EXPECT_EQ(pixelsOf(*surface).pixel(5, 5), QColor(Qt::green).rgb());
    surface->orderOut();
    surface->orderFront();
    EXPECT_EQ(pixelsOf(*surface).pixel(5, 5), QColor(Qt::green).rgb());
}

TEST_F(RootPixmapSurfaceTest, waitsWhileTheProgramIsGoneAndPaintsAllWhenItComesBack) {
    const auto surface = shown(Qt::blue);
    picture->setTarget(std::nullopt);
    EXPECT_FALSE(hasRecord());
    fill(*surface, Qt::green, QRect(10, 10, 10, 10));
    EXPECT_EQ(pixelsOf(*surface).pixel(15, 15), QColor(Qt::green).rgb());
    desktop.renew(kWholeScreen.size(), Qt::darkGreen);
    picture->setTarget(desktop.target());
    EXPECT_TRUE(waitForPixel(kAway, Qt::green));
}

TEST_F(RootPixmapSurfaceTest, leavesThePictureAsItWasWhenItIsNoLongerToPaintThere) {
    const auto surface = shown(Qt::blue);
    picture->setTarget(std::nullopt);
    EXPECT_TRUE(waitForPixel(kAway, Qt::darkRed));
}

TEST_F(RootPixmapSurfaceTest, doesNotTakeItsOwnPixelsForTheEarlierPictureWhenAWindowComes) {
    const auto surface = shown(Qt::blue);
    auto target = desktop.target();
    target.windows.push_back(client->show({.geometry = {600, 300, 200, 150}}));
    picture->setTarget(target);
    surface->orderOut();
    EXPECT_TRUE(waitForPixel(kAway, Qt::darkRed));
    EXPECT_EQ(client->numbers(client->root(), kRecordName).size(), 5 + 2);
}

TEST_F(RootPixmapSurfaceTest, doesNotPaintIntoAPictureOfAnotherForm) {
    auto target = desktop.target();
    target.depth = 16;
    picture->setTarget(target);
    EXPECT_FALSE(picture->isThere());
    const auto surface = make();
    fill(*surface, Qt::blue);
    surface->orderFront();
    runLoopFor(std::chrono::milliseconds(50));
    EXPECT_EQ(client->pixel(kAway), QColor(Qt::darkRed).rgb() & 0xFFFFFF);
}

TEST_F(RootPixmapSurfaceTest, theEndLeavesThePictureAsItWas) {
    auto surface = shown(Qt::blue);
    EXPECT_TRUE(hasRecord());
    surface.reset();
    picture.reset();
    EXPECT_EQ(client->pixel(kAway), QColor(Qt::darkRed).rgb() & 0xFFFFFF);
    EXPECT_FALSE(hasRecord());
    EXPECT_EQ(reloads, 0);
}

TEST_F(RootPixmapSurfaceTest, theEndLeavesNothingInTheServer) {
    const auto surface = shown(Qt::blue);
    const xcb_pixmap_t kept = client->numbers(client->root(), kRecordName).value(0);
    ASSERT_EQ(client->size(kept), kWholeScreen.size());
    surface->orderOut();
    picture->setTarget(std::nullopt);
    EXPECT_TRUE(waitUntil([&] { return client->size(kept).isEmpty(); }));
}

TEST_F(RootPixmapSurfaceTest, leavesNoClientBehindWhereThereIsNoRoomForACopy) {
    const std::uint32_t ids = xcb_get_setup(connection->xcb())->resource_id_mask;
    const std::uint32_t keeper = client->numbers(client->root(), kRecordName).value(0) & ~ids;
    auto target = desktop.target();
    target.size = {40000, 40000}; // more than a server has pixels for
    for (int i = 0; i < 5; ++i) {
        picture->setTarget(std::nullopt);
        picture->setTarget(target);
        ASSERT_FALSE(picture->isThere());
    }
    // A server gives each client the lowest ids that are free.
    EXPECT_TRUE(waitUntil([&] {
        const auto next = X11Connection::open(session.display());
        return next && xcb_get_setup(next->xcb())->resource_id_base == keeper;
    }));
}

TEST_F(RootPixmapSurfaceTest, restsWhileTheProgramPaintsOnAndOnAndComesBackAfterwards) {
    int repaints = 0;
    const auto claim = picture->claim(kWholeScreen, [&] { ++repaints; });
    for (int i = 0; i < 50; ++i) {
        desktop.announce();
    }
    ASSERT_TRUE(waitUntil([&] { return repaints > 0; }));
    runLoopFor(std::chrono::milliseconds(50));
    const int atFirst = repaints;
    EXPECT_LE(atFirst, 10);
    EXPECT_TRUE(waitUntil([&] { return repaints > atFirst; }));
}

/// What is left when the program was killed while its surface was shown.
class KilledRunTest : public RootPixmapSurfaceTest {
protected:
    KilledRunTest() {
        const auto surface = shown(Qt::blue);
        const xcb_pixmap_t mark = xcb_generate_id(connection->xcb());
        xcb_create_pixmap(connection->xcb(), 24, mark, connection->root(), 1, 1);
        connection->intern("ZEPH_TEST"); // the server knows it with the answer
        kept = client->numbers(client->root(), kRecordName).value(0);
        client->killOwner(kept);
        client->killOwner(mark);
        EXPECT_EQ(client->pixel(kAway), 0x0000FFU);
    }

    /// Its objects can't do anything any more.
    void forgetTheRun() { picture.reset(); }

    xcb_pixmap_t kept = XCB_PIXMAP_NONE;
};

TEST_F(KilledRunTest, theNextStartKnowsTheEarlierPicture) {
    forgetTheRun();
    start();
    const auto surface = shown(Qt::green);
    EXPECT_EQ(reloads, 1) << "the program is asked whether its picture is another by now";
    EXPECT_TRUE(client->size(kept).isEmpty()) << "one copy is enough";
    surface->orderOut();
    EXPECT_TRUE(waitForPixel(kAway, Qt::darkRed));
}

TEST_F(KilledRunTest, theNextStartPutsThePictureBackWhereNoSurfaceIsShown) {
    forgetTheRun();
    start();
    const auto surface = shown(Qt::green, {0, 0, 640, 800});
    EXPECT_TRUE(waitForPixel({640, 600}, Qt::darkRed));
    EXPECT_TRUE(waitForPicture({1279, 799}, Qt::darkRed));
}

TEST_F(KilledRunTest, theNextStartPutsThePictureBackThoughItDrawsAWindow) {
    forgetTheRun();
    connection = X11Connection::open(session.display());
    server = X11WindowServer::create(*connection);
    server->settle();
    EXPECT_EQ(server->drawingWay().mechanism, DrawingMechanism::desktopWindow);
    EXPECT_TRUE(waitForPixel(kAway, Qt::darkRed));
    EXPECT_FALSE(hasRecord());
    EXPECT_TRUE(client->size(kept).isEmpty());
}

TEST_F(KilledRunTest, theNextStartTakesThePictureThatTheProgramPaintsThen) {
    forgetTheRun();
    start();
    connection->intern("ZEPH_TEST"); // the server follows the picture with the answer
    desktop.paint(kWholeScreen, Qt::darkGreen);
    desktop.announce();
    const auto surface = shown(Qt::green);
    surface->orderOut();
    EXPECT_TRUE(waitForPixel(kAway, Qt::darkGreen));
}

TEST_F(KilledRunTest, thePictureComesBackWithoutAStart) {
    forgetTheRun();
    const auto another = X11Connection::open(session.display());
    EXPECT_TRUE(restoreDesktopPicture(*another));
    EXPECT_EQ(client->pixel(kAway), QColor(Qt::darkRed).rgb() & 0xFFFFFF);
    EXPECT_EQ(client->pixel(PlayedDesktop::icon.center()), PlayedDesktop::iconColour);
    EXPECT_FALSE(hasRecord());
    EXPECT_TRUE(client->size(kept).isEmpty());
    EXPECT_FALSE(restoreDesktopPicture(*another)) << "once is enough";
}

TEST_F(KilledRunTest, nothingIsPutBackIntoAnotherPicture) {
    forgetTheRun();
    desktop.renew(kWholeScreen.size(), Qt::darkGreen);
    const auto another = X11Connection::open(session.display());
    EXPECT_FALSE(restoreDesktopPicture(*another));
    EXPECT_EQ(client->pixel(kAway), QColor(Qt::darkGreen).rgb() & 0xFFFFFF);
    EXPECT_FALSE(hasRecord());
}

TEST_F(KilledRunTest, theNextStartKeepsThePictureOfAProgramThatTookAnother) {
    forgetTheRun();
    desktop.renew(kWholeScreen.size(), Qt::darkGreen);
    start();
    EXPECT_EQ(reloads, 0);
    const auto surface = shown(Qt::green);
    surface->orderOut();
    EXPECT_TRUE(waitForPixel(kAway, Qt::darkGreen));
}

TEST_F(Depth32Test, itsPixelsAreOpaque) {
    const auto surface = make();
    fill(*surface, Qt::blue, QRect(0, 0, 640, 800));
    surface->orderFront();
    EXPECT_TRUE(waitForPicture({10, 10}, Qt::blue));
    EXPECT_EQ(client->pixelOf(desktop.target().pixmap, {10, 10}), 0xFF0000FFU);
    surface->orderOut();
    EXPECT_TRUE(waitForPicture({10, 10}, Qt::darkRed));
}

TEST_F(Depth32Test, whatIsNotPaintedYetIsOpaqueToo) {
    const auto surface = make();
    surface->orderFront();
    EXPECT_TRUE(waitForPicture(kAway, Qt::black));
}

TEST_F(UnsharedRootPixmapTest, sendsThePixelsWhereMemoryCantBeShared) {
    const auto surface = shown(Qt::blue, {640, 0, 640, 800});
    EXPECT_FALSE(surface->isShared());
    EXPECT_TRUE(waitForPixel({640, 0}, Qt::blue));
    EXPECT_EQ(client->pixel({639, 0}), QColor(Qt::darkRed).rgb() & 0xFFFFFF);
}

} // namespace zeph
