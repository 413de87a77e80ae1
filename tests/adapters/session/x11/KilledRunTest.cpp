// SPDX-License-Identifier: MIT
#include "RootPixmapFixture.h"

namespace zeph {

namespace {

/// What is left when the program was killed while its surface was shown.
class KilledRunTest : public RootPixmapSurfaceTest {
protected:
    KilledRunTest() {
        const auto surface = shown(Qt::blue);
        const xcb_pixmap_t mark = xcb_generate_id(connection->xcb());
        xcb_create_pixmap(connection->xcb(), 24, mark, connection->root(), 1, 1);
        connection->intern("ZEPH_TEST"); // the server knows it with the answer
        kept = recordOnRoot(*client).kept;
        client->killOwner(kept);
        client->killOwner(mark);
        EXPECT_EQ(client->pixel(kAway), 0x0000FFU);
    }

    /// Its objects can't do anything any more.
    void forgetTheRun() { picture.reset(); }

    /// Writes the record of that run as another one would.
    void rewriteRecord(const std::function<void(EarlierPictureRecord &)> &change) {
        auto record = recordOnRoot(*client);
        change(record);
        const auto rewritten = numbersOf(record);
        client->setIds(client->root(), kRecordName, XCB_ATOM_CARDINAL,
                       {rewritten.begin(), rewritten.end()});
    }

    xcb_pixmap_t kept = XCB_PIXMAP_NONE;
};

} // namespace

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

TEST_F(KilledRunTest, nothingIsPutBackIntoAnotherPictureWithTheNumberOfTheFirst) {
    forgetTheRun();
    desktop.reuseNumber(Qt::darkGreen);
    desktop.announce();
    const auto another = X11Connection::open(session.display());
    EXPECT_FALSE(restoreDesktopPicture(*another));
    EXPECT_EQ(client->pixel(kAway), QColor(Qt::darkGreen).rgb() & 0xFFFFFF);
    EXPECT_FALSE(hasRecord());
}

TEST_F(KilledRunTest, theNextStartKnowsAnotherPictureWithTheNumberOfTheFirst) {
    forgetTheRun();
    desktop.reuseNumber(Qt::darkGreen);
    desktop.announce();
    start();
    EXPECT_EQ(reloads, 0);
    const auto surface = shown(Qt::green);
    surface->orderOut();
    EXPECT_TRUE(waitForPixel(kAway, Qt::darkGreen));
}

TEST_F(KilledRunTest, theNextStartGivesThePictureBackAlsoWhereItPaintsIntoAnother) {
    forgetTheRun();
    const PlayedDesktop other(session.display(), kWholeScreen.size(), Qt::darkGreen);
    connection = X11Connection::open(session.display());
    picture = std::make_unique<X11DesktopPicture>(*connection, [this] { ++reloads; });
    picture->setTarget(other.target());
    EXPECT_TRUE(waitForPicture(kAway, Qt::darkRed));
    EXPECT_TRUE(client->size(kept).isEmpty());
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

TEST_F(KilledRunTest, aPictureOfAnotherProgramThatTookTheNumberIsLeftAlone) {
    forgetTheRun();
    const auto another = X11Connection::open(session.display());
    const xcb_pixmap_t foreign = xcb_generate_id(another->xcb());
    xcb_create_pixmap(another->xcb(), 24, foreign, another->root(), 10, 10);
    another->intern("ZEPH_TEST"); // the server knows it with the answer
    rewriteRecord([&](EarlierPictureRecord &record) { record.kept = foreign; });
    const auto third = X11Connection::open(session.display());
    EXPECT_FALSE(restoreDesktopPicture(*third)) << "what was kept is gone";
    EXPECT_EQ(client->size(foreign), QSize(10, 10));
    EXPECT_FALSE(hasRecord());
}

TEST_F(KilledRunTest, thatOfAnotherMachineIsLeftAlone) {
    forgetTheRun();
    rewriteRecord([](EarlierPictureRecord &record) { ++record.machine; });
    const auto another = X11Connection::open(session.display());
    EXPECT_FALSE(restoreDesktopPicture(*another));
    EXPECT_EQ(client->pixel(kAway), 0x0000FFU);
    EXPECT_TRUE(hasRecord());
    EXPECT_FALSE(client->size(kept).isEmpty());
}

TEST_F(KilledRunTest, thePictureThatAnEarlierVersionKeptComesBack) {
    forgetTheRun();
    rewriteRecord([](EarlierPictureRecord &record) {
        record.machine = 0;
        record.mark = XCB_NONE;
    });
    const auto another = X11Connection::open(session.display());
    EXPECT_TRUE(restoreDesktopPicture(*another));
    EXPECT_EQ(client->pixel(kAway), QColor(Qt::darkRed).rgb() & 0xFFFFFF);
    EXPECT_FALSE(hasRecord());
}

TEST_F(KilledRunTest, theNextStartKnowsThePictureThatAnEarlierVersionKept) {
    forgetTheRun();
    rewriteRecord([](EarlierPictureRecord &record) {
        record.machine = 0;
        record.mark = XCB_NONE;
    });
    start();
    const auto surface = shown(Qt::green);
    surface->orderOut();
    EXPECT_TRUE(waitForPixel(kAway, Qt::darkRed));
}

TEST_F(KilledRunTest, nothingThatAnEarlierVersionKeptIsPutBackIntoAnotherPicture) {
    forgetTheRun();
    rewriteRecord([](EarlierPictureRecord &record) {
        record.machine = 0;
        record.mark = XCB_NONE;
    });
    desktop.renew(kWholeScreen.size(), Qt::darkGreen);
    const auto another = X11Connection::open(session.display());
    EXPECT_FALSE(restoreDesktopPicture(*another));
    EXPECT_EQ(client->pixel(kAway), QColor(Qt::darkGreen).rgb() & 0xFFFFFF);
    EXPECT_FALSE(hasRecord());
}

} // namespace zeph
