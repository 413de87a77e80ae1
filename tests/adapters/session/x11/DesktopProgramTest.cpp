// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11DesktopProgram.h"

#include "LeftPixmap.h"
#include "X11Fixture.h"
#include "adapters/session/x11/X11DesktopWindows.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

using Found = X11DesktopProgram::Found;

constexpr QSize kShrunk(1280, 720); // that of a desktop of less pixels

/// What a desktop program shows, by another client; nobody but itself tells of its window.
class DesktopProgramWatchTest : public X11Test {
protected:
    xcb_window_t showDesktop(const QByteArray &windowClass, const QByteArray &gtkId = {}) {
        return client->show({.geometry = kWholeScreen,
                             .type = kDesktopType,
                             .instance = "desktop_window",
                             .name = windowClass,
                             .gtkApplicationId = gtkId});
    }
    void name(const QByteArray &property, std::uint32_t id) {
        client->setIds(client->root(), property, XCB_ATOM_WINDOW, {id});
    }
    void list(const QList<std::uint32_t> &stacked) {
        client->setIds(client->root(), "_NET_CLIENT_LIST_STACKING", XCB_ATOM_WINDOW, stacked);
    }
    void share(xcb_pixmap_t pixmap) {
        client->setIds(client->root(), "_XROOTPMAP_ID", XCB_ATOM_PIXMAP, {pixmap});
    }

    bool becomes(const std::optional<Found> &wanted) {
        return waitUntil([&] { return program.found() == wanted; });
    }

    X11DesktopWindows windows{*connection};
    X11DesktopProgram program{*connection, windows};
};

} // namespace

TEST_F(DesktopProgramWatchTest, findsNoneOnABareDisplay) {
    connection->waitForReplies();
    EXPECT_FALSE(program.found());
}

TEST_F(DesktopProgramWatchTest, findsOneByItsNoteOnTheRoot) {
    const auto desktop = showDesktop("Xfdesktop");
    name("XFCE_DESKTOP_WINDOW", desktop);
    EXPECT_TRUE(becomes({{.kind = DesktopProgram::xfdesktop, .windows = {desktop}}}));
}

TEST_F(DesktopProgramWatchTest, findsOneByItsWindowInTheList) {
    const auto desktop = showDesktop("Nemo-desktop");
    const auto terminal =
        client->show({.geometry = {10, 10, 50, 50}, .instance = "nemo", .name = "Nemo-desktop"});
    list({desktop, terminal});
    EXPECT_TRUE(becomes({{.kind = DesktopProgram::nemoDesktop, .windows = {desktop}}}))
        << "a window of another type is none of its desktop";
}

TEST_F(DesktopProgramWatchTest, findsOneThatRanBefore) {
    const auto desktop = showDesktop("Gjs", "com.rastersoft.ding");
    list({desktop});
    ASSERT_TRUE(becomes({{.kind = DesktopProgram::ding, .windows = {desktop}}}));
    X11DesktopWindows listed(*connection);
    const X11DesktopProgram later(*connection, listed);
    connection->waitForReplies();
    EXPECT_EQ(later.found(), program.found());
}

TEST_F(DesktopProgramWatchTest, takesOnlyProgramsThatDrawIcons) {
    list({showDesktop("Conky")});
    ASSERT_TRUE(waitUntil([&] { return windows.all().size() == 1; }));
    connection->waitForReplies();
    EXPECT_FALSE(program.found());
}

TEST_F(DesktopProgramWatchTest, takesTheOneWhoseIconsAreSeenWithAllItsWindows) {
    const auto beneath = showDesktop("Caja");
    const auto left = showDesktop("Pcmanfm");
    const auto right = showDesktop("Pcmanfm");
    name("CAJA_DESKTOP_WINDOW_ID", beneath);
    list({beneath, left, right});
    EXPECT_TRUE(becomes({{.kind = DesktopProgram::pcmanfm, .windows = {left, right}}}));
    list({left, right, beneath});
    EXPECT_TRUE(becomes({{.kind = DesktopProgram::caja, .windows = {beneath}}}));
}

TEST_F(DesktopProgramWatchTest, knowsThePixmapOfItsPicture) {
    const auto desktop = showDesktop("Xfdesktop");
    const auto pixmap = client->makePixmap({1280, 800}, 24);
    name("XFCE_DESKTOP_WINDOW", desktop);
    share(pixmap);
    const Found first{DesktopProgram::xfdesktop, {desktop}, pixmap, {1280, 800}, 24};
    ASSERT_TRUE(becomes(first));
    int changes = 0;
    const Subscription counting = program.subscribe([&] { ++changes; });
    const auto larger = client->makePixmap({1920, 1080}, 24);
    share(larger);
    const Found second{DesktopProgram::xfdesktop, {desktop}, larger, {1920, 1080}, 24};
    EXPECT_TRUE(becomes(second));
    EXPECT_EQ(changes, 1);
}

TEST_F(DesktopProgramWatchTest, knowsAPictureOfOneOfSeveralDisplays) {
    const auto desktop = showDesktop("Pcmanfm");
    list({desktop});
    for (const QSize size : {QSize(640, 800), QSize(1280, 400)}) {
        const auto part = client->makePixmap(size, 24);
        share(part);
        EXPECT_TRUE(becomes({{DesktopProgram::pcmanfm, {desktop}, part, size, 24, true, true}}));
    }
    const auto whole = client->makePixmap(kWholeScreen.size(), 24);
    share(whole);
    EXPECT_TRUE(becomes({{DesktopProgram::pcmanfm, {desktop}, whole, {1280, 800}, 24}}));
}

TEST_F(DesktopProgramWatchTest, takesNoPixmapThatIsGone) {
    const auto desktop = showDesktop("Caja");
    share(client->makePixmap({1280, 800}, 24) + 1);
    name("CAJA_DESKTOP_WINDOW_ID", desktop);
    EXPECT_TRUE(becomes({{.kind = DesktopProgram::caja, .windows = {desktop}}}));
}

TEST_F(DesktopProgramWatchTest, takesNoPixmapOfOneBitAPoint) {
    const auto desktop = showDesktop("Caja");
    share(client->makePixmap({1280, 800}, 1));
    name("CAJA_DESKTOP_WINDOW_ID", desktop);
    EXPECT_TRUE(becomes({{.kind = DesktopProgram::caja, .windows = {desktop}}}));
}

TEST_F(DesktopProgramWatchTest, takesNoWindowForAPixmap) {
    const auto desktop = showDesktop("Caja");
    share(desktop);
    name("CAJA_DESKTOP_WINDOW_ID", desktop);
    EXPECT_TRUE(becomes({{.kind = DesktopProgram::caja, .windows = {desktop}}}));
}

TEST_F(DesktopProgramWatchTest, findsThePictureThatCajaDoesNotAnnounceAtAnotherSize) {
    const auto desktop = showDesktop("Caja");
    const auto announced = leavePixmap(session.display(), {2560, 800}, Qt::darkRed);
    share(announced);
    name("CAJA_DESKTOP_WINDOW_ID", desktop);
    ASSERT_TRUE(becomes({{DesktopProgram::caja, {desktop}, announced, {2560, 800}, 24}}));
    const auto shown = leavePixmap(session.display(), kShrunk, Qt::darkGreen);
    client->resize(desktop, kShrunk);
    const Found silent{DesktopProgram::caja, {desktop}, shown, kShrunk, 24, false, true};
    EXPECT_TRUE(becomes(silent));
    X11DesktopWindows listed(*connection);
    const X11DesktopProgram later(*connection, listed);
    connection->waitForReplies();
    EXPECT_EQ(later.found(), silent);
}

TEST_F(DesktopProgramWatchTest, knowsThatCajaEnlargesItsPictureAlsoAtAnotherSize) {
    const auto desktop = showDesktop("Caja");
    client->resize(desktop, kWholeScreen.size());
    const auto announced = leavePixmap(session.display(), kWholeScreen.size() / 2, Qt::darkRed);
    share(announced);
    name("CAJA_DESKTOP_WINDOW_ID", desktop);
    ASSERT_TRUE(
        becomes({{DesktopProgram::caja, {desktop}, announced, {640, 400}, 24, true, false, 2}}));
    const auto shown = leavePixmap(session.display(), kShrunk / 2, Qt::darkGreen);
    client->resize(desktop, kShrunk);
    EXPECT_TRUE(
        becomes({{DesktopProgram::caja, {desktop}, shown, kShrunk / 2, 24, false, true, 2}}));
}

TEST_F(DesktopProgramWatchTest, looksAgainForAPictureThatCajaMakesLate) {
    const auto desktop = showDesktop("Caja");
    const auto announced = leavePixmap(session.display(), kWholeScreen.size(), Qt::darkRed);
    share(announced);
    name("CAJA_DESKTOP_WINDOW_ID", desktop);
    const Found first{DesktopProgram::caja, {desktop}, announced, kWholeScreen.size(), 24};
    ASSERT_TRUE(becomes(first));
    client->resize(desktop, kShrunk);
    runLoopFor(std::chrono::milliseconds(150));
    EXPECT_EQ(program.found(), first);
    const auto shown = leavePixmap(session.display(), kShrunk, Qt::darkGreen);
    EXPECT_TRUE(becomes({{DesktopProgram::caja, {desktop}, shown, kShrunk, 24, false, true}}));
}

TEST_F(DesktopProgramWatchTest, looksOnceMoreForAPictureThatCajaMakesLater) {
    const auto desktop = showDesktop("Caja");
    const auto announced = leavePixmap(session.display(), kWholeScreen.size(), Qt::darkRed);
    share(announced);
    name("CAJA_DESKTOP_WINDOW_ID", desktop);
    const Found first{DesktopProgram::caja, {desktop}, announced, kWholeScreen.size(), 24};
    ASSERT_TRUE(becomes(first));
    client->resize(desktop, kShrunk);
    runLoopFor(std::chrono::milliseconds(600)); // after the second look
    EXPECT_EQ(program.found(), first);
    const auto shown = leavePixmap(session.display(), kShrunk, Qt::darkGreen);
    EXPECT_TRUE(becomes({{DesktopProgram::caja, {desktop}, shown, kShrunk, 24, false, true}}));
}

TEST_F(DesktopProgramWatchTest, comparesAPictureWithTheScreenOfNow) {
    const auto xrandr = [this](const QStringList &arguments) {
        return session.run(QStringList{u"xrandr"_s} + arguments);
    };
    const auto desktop = showDesktop("Pcmanfm");
    const QSize size(1024, 768);
    const auto picture = leavePixmap(session.display(), size, Qt::darkRed);
    share(picture);
    list({desktop});
    ASSERT_TRUE(becomes({{DesktopProgram::pcmanfm, {desktop}, picture, size, 24, true, true}}));
    xrandr({u"--newmode"_s, u"small"_s, u"0"_s, u"1024"_s, u"0"_s, u"0"_s, u"1024"_s, u"768"_s,
            u"0"_s, u"0"_s, u"768"_s});
    xrandr({u"--addmode"_s, u"screen"_s, u"small"_s});
    ASSERT_FALSE(xrandr({u"--output"_s, u"screen"_s, u"--mode"_s, u"small"_s}).isNull());
    EXPECT_TRUE(becomes({{DesktopProgram::pcmanfm, {desktop}, picture, size, 24, true, false}}));
}

TEST_F(DesktopProgramWatchTest, takesNoPixmapOfAnotherProgramForThePictureOfCaja) {
    const auto desktop = showDesktop("Caja");
    const auto announced = leavePixmap(session.display(), {2560, 800}, Qt::darkRed);
    const auto theirs =
        leavePixmapOfAnother(session.display(), kWholeScreen.size(), Qt::darkYellow);
    share(announced);
    name("CAJA_DESKTOP_WINDOW_ID", desktop);
    const Found first{DesktopProgram::caja, {desktop}, announced, {2560, 800}, 24};
    ASSERT_TRUE(becomes(first));
    EXPECT_EQ(client->pixelOf(theirs, {5, 5}), QColor(Qt::darkYellow).rgba());
    const auto shown = leavePixmap(session.display(), kWholeScreen.size(), Qt::darkGreen);
    share(announced);
    EXPECT_TRUE(becomes({{DesktopProgram::caja, {desktop}, shown, kWholeScreen.size(), 24, false}}))
        << "theirs is none of several either";
}

TEST_F(DesktopProgramWatchTest, takesNoPixmapOfAnotherProgramThoughItIsAnnounced) {
    const auto desktop = showDesktop("Pcmanfm"); // in a plain colour, after a login screen
    share(leavePixmapOfAnother(session.display(), kWholeScreen.size(), Qt::darkYellow));
    list({desktop});
    EXPECT_TRUE(becomes({{DesktopProgram::pcmanfm, {desktop}}}));
    const auto own = leavePixmap(session.display(), kWholeScreen.size(), Qt::darkRed);
    share(own);
    EXPECT_TRUE(becomes({{DesktopProgram::pcmanfm, {desktop}, own, kWholeScreen.size(), 24}}));
}

TEST_F(DesktopProgramWatchTest, takesNoUnannouncedPixmapForThePictureOfOthers) {
    const auto desktop = showDesktop("Xfdesktop");
    const auto announced = leavePixmap(session.display(), {2560, 800}, Qt::darkRed);
    leavePixmap(session.display(), kWholeScreen.size(), Qt::darkGreen);
    share(announced);
    name("XFCE_DESKTOP_WINDOW", desktop);
    EXPECT_TRUE(becomes({{DesktopProgram::xfdesktop, {desktop}, announced, {2560, 800}, 24}}));
}

TEST_F(DesktopProgramWatchTest, isGoneWithItsWindowThoughItsNoteIsLeft) {
    const auto desktop = showDesktop("Caja");
    name("CAJA_DESKTOP_WINDOW_ID", desktop);
    ASSERT_TRUE(becomes({{.kind = DesktopProgram::caja, .windows = {desktop}}}));
    client->destroy(desktop);
    EXPECT_TRUE(becomes({}));
    X11DesktopWindows listed(*connection);
    const X11DesktopProgram later(*connection, listed);
    connection->waitForReplies();
    EXPECT_FALSE(later.found());
}

TEST_F(DesktopProgramWatchTest, followsOneThatIsStartedAnew) {
    const auto first = showDesktop("Xfdesktop");
    name("XFCE_DESKTOP_WINDOW", first);
    ASSERT_TRUE(becomes({{.kind = DesktopProgram::xfdesktop, .windows = {first}}}));
    client->destroy(first);
    const auto second = showDesktop("Xfdesktop");
    name("XFCE_DESKTOP_WINDOW", second);
    EXPECT_TRUE(becomes({{.kind = DesktopProgram::xfdesktop, .windows = {second}}}));
}

TEST_F(DesktopProgramWatchTest, leavesOurOwnWindowsAlone) {
    const auto surface = showSurface(Qt::blue);
    list({windowOf(*surface)});
    ASSERT_TRUE(waitUntil([&] { return windows.all().size() == 1; }));
    connection->waitForReplies();
    EXPECT_FALSE(program.found());
    // Its exposures still reach it.
    const auto cover = client->show(
        {.geometry = {100, 100, 200, 150}, .colour = 0xFF0000, .overridesRedirect = true});
    client->destroy(cover);
    EXPECT_TRUE(waitForPixel({200, 175}, Qt::blue));
}

} // namespace zeph
