// SPDX-License-Identifier: MIT
#include "LeftPixmap.h"
#include "RootPixmapFixture.h"

#include <QSysInfo>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

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

/// The display of 1280 × 800 has a picture of half of that each way.
class EnlargedPictureTest : public RootPixmapSurfaceTest {
protected:
    EnlargedPictureTest() {
        desktop.renew(kWholeScreen.size() / 2, Qt::darkRed);
        RootPixmapTarget target = desktop.target();
        target.enlargement = 2;
        picture->setTarget(target);
    }
    QRgb pictureAt(QPoint pixel) const {
        return client->pixelOf(desktop.target().pixmap, pixel).value_or(0);
    }
};

TEST_F(EnlargedPictureTest, getsEachSquareOfPixelsAsOne) {
    const auto left = make({0, 0, 640, 800});
    const auto right = make({640, 0, 640, 800});
    fill(*left, Qt::blue);
    fill(*right, Qt::green);
    left->orderFront();
    right->orderFront();
    ASSERT_TRUE(waitForPicture({319, 399}, Qt::blue));
    ASSERT_TRUE(waitForPicture({320, 0}, Qt::green));
    EXPECT_TRUE(waitForPicture({639, 399}, Qt::green));
    pixelsOf(*right);
    right->show([](QImage &frame) {
        frame.setPixelColor(101, 51, Qt::black); // of a square of four
        return QRegion(101, 51, 1, 1);
    });
    const QColor mixed(0, 191, 0);
    ASSERT_TRUE(waitUntil([&] { return qGreen(pictureAt({370, 25})) < 255; }));
    EXPECT_NEAR(qGreen(pictureAt({370, 25})), mixed.green(), 2);
    EXPECT_EQ(pictureAt({371, 25}), QColor(Qt::green).rgba());
    EXPECT_EQ(pictureAt({370, 24}), QColor(Qt::green).rgba());
}

TEST_F(EnlargedPictureTest, losesNothingOfManyChangesInARow) {
    const auto surface = make();
    fill(*surface, Qt::blue);
    surface->orderFront();
    fill(*surface, Qt::red); // while the first may still be read
    for (int x = 0; x < 1280; x += 40) {
        fill(*surface, Qt::yellow, QRect(x, 0, 40, 800));
    }
    EXPECT_TRUE(waitForPicture({0, 0}, Qt::yellow));
    EXPECT_TRUE(waitForPicture({320, 200}, Qt::yellow));
    EXPECT_TRUE(waitForPicture({639, 399}, Qt::yellow));
}

TEST_F(EnlargedPictureTest, comesBackWhereNoSurfaceIs) {
    const auto surface = make({0, 0, 640, 800});
    fill(*surface, Qt::blue);
    surface->orderFront();
    ASSERT_TRUE(waitForPicture({319, 399}, Qt::blue));
    EXPECT_EQ(pictureAt({320, 399}), QColor(Qt::darkRed).rgba());
    surface->orderOut();
    EXPECT_TRUE(waitForPicture({319, 399}, Qt::darkRed));
    EXPECT_TRUE(waitForPicture({0, 0}, Qt::darkRed));
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

TEST_F(RootPixmapSurfaceTest, tellsAPictureFromTheOneThatHadItsNumber) {
    const auto surface = shown(Qt::blue);
    desktop.reuseNumber(Qt::darkGreen);
    desktop.announce();
    EXPECT_TRUE(waitForPixel(kAway, Qt::blue));
    surface->orderOut();
    EXPECT_TRUE(waitForPixel(kAway, Qt::darkGreen)) << "that is the earlier picture now";
}

TEST_F(RootPixmapSurfaceTest, paintsNothingIntoWhatHasTheNumberOfAPictureThatIsGone) {
    const auto surface = shown(Qt::blue);
    const auto target = desktop.target();
    desktop.reuseNumber(Qt::darkGreen);
    client->setIds(client->root(), "_XROOTPMAP_ID", XCB_ATOM_PIXMAP, {XCB_PIXMAP_NONE});
    fill(*surface, Qt::green);
    runLoopFor(std::chrono::milliseconds(150));
    EXPECT_EQ(client->pixelOf(target.pixmap, kAway), QColor(Qt::darkGreen).rgba());
    EXPECT_FALSE(hasRecord());
    desktop.announce();
    EXPECT_TRUE(waitForPixel(kAway, Qt::green)) << "it is its own again";
}

TEST_F(RootPixmapSurfaceTest, forgetsAPictureThatIsGoneWhenTheProgramGoesToo) {
    const auto surface = shown(Qt::blue);
    const auto target = desktop.target();
    desktop.reuseNumber(Qt::darkGreen);
    client->setIds(client->root(), "_XROOTPMAP_ID", XCB_ATOM_PIXMAP, {XCB_PIXMAP_NONE});
    fill(*surface, Qt::green);
    ASSERT_TRUE(waitUntil([&] { return !picture->isThere(); }));
    picture->setTarget(std::nullopt);
    desktop.announce();
    runLoopFor(std::chrono::milliseconds(150));
    EXPECT_FALSE(picture->isThere());
    EXPECT_EQ(client->pixelOf(target.pixmap, kAway), QColor(Qt::darkGreen).rgba());
}

TEST_F(RootPixmapSurfaceTest, staysWithTheNextPictureThoughTheFormerOneTurnsOutToBeGone) {
    const auto surface = shown(Qt::blue);
    const PlayedDesktop next(session.display(), kWholeScreen.size(), Qt::darkYellow);
    desktop.reuseNumber(Qt::darkGreen);
    picture->setTarget(next.target());
    ASSERT_TRUE(picture->isThere());
    runLoopFor(std::chrono::milliseconds(150)); // until it is tried again where it is none
    EXPECT_TRUE(picture->isThere());
    EXPECT_EQ(client->pixelOf(next.target().pixmap, kAway), QColor(Qt::blue).rgba());
}

TEST_F(RootPixmapSurfaceTest, paintsIntoNothingThatIsNotAnnounced) {
    auto target = desktop.target();
    picture->setTarget(std::nullopt);
    target.pixmap = client->makePixmap(kWholeScreen.size(), 24);
    picture->setTarget(target);
    EXPECT_FALSE(picture->isThere());
    EXPECT_FALSE(picture->isRefused()) << "there may be one soon";
    target = desktop.target();
    target.size -= QSize(10, 10);
    picture->setTarget(target);
    EXPECT_FALSE(picture->isThere());
    picture->setTarget(desktop.target());
    EXPECT_TRUE(picture->isThere());
}

TEST_F(RootPixmapSurfaceTest, paintsIntoAPictureThatIsShownWithoutAnAnnouncement) {
    auto target = desktop.target();
    target.pixmap = leavePixmap(session.display(), kWholeScreen.size(), Qt::darkGreen);
    target.isAnnounced = false;
    const auto surface = shown(Qt::blue);
    picture->setTarget(target);
    EXPECT_TRUE(picture->isThere());
    EXPECT_TRUE(waitUntil(
        [&] { return client->pixelOf(target.pixmap, kAway) == QColor(Qt::blue).rgba(); }));
    surface->orderOut();
    EXPECT_TRUE(waitUntil(
        [&] { return client->pixelOf(target.pixmap, kAway) == QColor(Qt::darkGreen).rgba(); }));
    picture->setTarget(std::nullopt);
    client->show({.geometry = {10, 10, 50, 50}});
    target.pixmap = client->makePixmap(kWholeScreen.size(), 24);
    picture->setTarget(target);
    EXPECT_FALSE(picture->isThere()) << "that of somebody who is still there";
    target.pixmap = leavePixmapOfAnother(session.display(), kWholeScreen.size(), Qt::darkRed);
    picture->setTarget(target);
    EXPECT_FALSE(picture->isThere()) << "that of another program";
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
    EXPECT_EQ(recordOnRoot(*client).target, target);
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

TEST_F(RootPixmapSurfaceTest, tellsOnWhichMachineItKeepsTheEarlierPicture) {
    EXPECT_EQ(recordOnRoot(*client).machine, machineNumber(QSysInfo::machineUniqueId()));
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
    const xcb_pixmap_t kept = recordOnRoot(*client).kept;
    ASSERT_EQ(client->size(kept), kWholeScreen.size());
    surface->orderOut();
    picture->setTarget(std::nullopt);
    EXPECT_TRUE(waitUntil([&] { return client->size(kept).isEmpty(); }));
}

TEST_F(RootPixmapSurfaceTest, leavesNoClientBehindWhereThereIsNoRoomForACopy) {
    const std::uint32_t ids = xcb_get_setup(connection->xcb())->resource_id_mask;
    const std::uint32_t keeper = recordOnRoot(*client).kept & ~ids;
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
