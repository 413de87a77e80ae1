// SPDX-License-Identifier: MIT
#include "adapters/icons/ScreensBesideIcons.h"

#include "base/Background.h"
#include "support/FakeScreens.h"
#include "support/FakeWindowServer.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const DesktopIcons kTwoColumns{.cell = {100, 100}, .places = {{0, 0}, {100, 0}}};

QRectF visible(const std::vector<Screen> &screens, std::size_t index = 0) {
    return screens.at(index).visibleFrame;
}

} // namespace

TEST(BesideIcons, theVisibleFrameLeavesTheColumnsOut) {
    const auto beside = besideIcons({screen(u"a"_s, 1, 1200, 800, 0, 1, 30)}, kTwoColumns);
    EXPECT_EQ(visible(beside), QRectF(200, 30, 1000, 770));
    EXPECT_EQ(beside.at(0).frame, QRectF(0, 0, 1200, 800));
}

TEST(BesideIcons, aPanelBeyondTheColumnsStays) {
    auto one = screen(u"a"_s, 1, 1200, 800);
    one.visibleFrame.setLeft(250);
    EXPECT_EQ(visible(besideIcons({one}, kTwoColumns)), QRectF(250, 0, 950, 800));
}

TEST(BesideIcons, screensWithoutIconsStayAsTheyAre) {
    const std::vector<Screen> screens{screen(u"a"_s, 1, 1200, 800),
                                      screen(u"b"_s, 2, 1200, 800, 1200)};
    EXPECT_EQ(besideIcons(screens, {}), screens);
    const auto beside = besideIcons(screens, kTwoColumns);
    EXPECT_EQ(visible(beside, 0), QRectF(200, 0, 1000, 800));
    EXPECT_EQ(visible(beside, 1), screens[1].visibleFrame);
}

TEST(BesideIcons, lengthsAreInPoints) {
    // Two displays of 1200 by 800 points at scale 2; the origin stays in device pixels.
    auto left = screen(u"a"_s, 1, 1200, 800, 0, 2);
    auto right = screen(u"b"_s, 2, 1200, 800, 1200, 2);
    right.frame.moveLeft(2400);
    right.visibleFrame.moveLeft(2400);
    const DesktopIcons icons{.cell = {100, 100}, .places = {{0, 0}, {1250, 0}}};
    const auto beside = besideIcons({left, right}, icons);
    EXPECT_EQ(visible(beside, 0), QRectF(100, 0, 1100, 800));
    EXPECT_EQ(visible(beside, 1), QRectF(2550, 0, 1050, 800));
}

TEST(BesideIcons, eachDisplayHasItsOwnWhereItHasItsOwnGrid) {
    const std::vector<Screen> screens{screen(u"a"_s, 1, 1200, 800),
                                      screen(u"b"_s, 2, 1200, 800, 1200),
                                      screen(u"c"_s, 3, 1200, 800, 2400)};
    const DisplayIcons second{
        .display = {1200, 0, 1200, 800}, .leastCell = {100, 100}, .unplaced = 2};
    const DisplayIcons first{
        .display = {0, 0, 1200, 800}, .leastCell = {100, 100}, .isFromRight = true, .unplaced = 1};
    const auto beside = besideIcons(screens, {.displays = {second, first}});
    EXPECT_EQ(visible(beside, 0), QRectF(0, 0, 1100, 800));
    EXPECT_EQ(visible(beside, 1), screens[1].visibleFrame.adjusted(200, 0, 0, 0));
    EXPECT_EQ(visible(beside, 2), screens[2].visibleFrame) << "it shows none";
}

TEST(BesideIcons, theVisibleFrameLeavesRowsOutBelowAPanel) {
    const DisplayIcons rows{.display = {0, 0, 1200, 800}, .leastCell = {100, 100}, .unplaced = 7};
    const auto beside = besideIcons({screen(u"a"_s, 1, 1200, 800, 0, 1, 30)}, {.displays = {rows}});
    EXPECT_EQ(visible(beside), QRectF(0, 140, 1200, 660)) << "seven rows fill the height";
}

TEST(BesideIcons, theWallpaperLiesInSomeWaysAlone) {
    for (const bool areAbove : {false, true}) {
        EXPECT_TRUE(showsIcons({DrawingMechanism::rootPixmap}, areAbove));
        EXPECT_TRUE(showsIcons({DrawingMechanism::underDesktopProgram}, areAbove));
        EXPECT_TRUE(showsIcons({DrawingMechanism::plasmaPictures}, areAbove));
        EXPECT_EQ(showsIcons({DrawingMechanism::desktopWindow}, areAbove), areAbove);
        EXPECT_FALSE(showsIcons({DrawingMechanism::layerSurface}, areAbove));
        EXPECT_FALSE(showsIcons({DrawingMechanism::loweredOverride}, areAbove));
        EXPECT_TRUE(showsIcons({DrawingMechanism::desktopWindow, {}, true}, areAbove))
            << "through it";
        EXPECT_TRUE(showsIcons({DrawingMechanism::layerSurface, {}, true}, areAbove))
            << "through it";
    }
}

TEST(ScreensBesideIcons, followTheScreensAndTheIcons) {
    const QTemporaryDir home;
    QDir(home.path()).mkpath(u"config/xfce4/desktop"_s);
    QFile file(home.filePath(u"config/xfce4/desktop/icons.screen.latest.rc"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[a]\nrow=0\ncol=1\n");
    file.close();
    FakeScreens screens;
    screens.screens = {screen(u"a"_s, 1, 1200, 800)};
    const auto now = [](const std::function<void()> &action) { action(); };
    const Background background(now, now);
    DesktopIconsWatch icons(IconStore{IconStore::Kind::xfdesktop,
                                      {home.filePath(u"config"_s), home.filePath(u"data"_s), {}}},
                            background, QDBusConnection(u"no bus"_s));
    FakeWindowServer server;
    ScreensBesideIcons beside(screens, server, icons);
    int calls = 0;
    const Subscription told = beside.subscribe([&] { ++calls; });
    EXPECT_EQ(beside.all(), screens.all()) << "nothing is read while nobody wants to know";
    server.setDrawingWay({DrawingMechanism::rootPixmap});
    EXPECT_EQ(calls, 1);
    const double left = visible(beside.all()).left();
    EXPECT_GT(left, 100);
    ASSERT_TRUE(beside.main());
    EXPECT_EQ(beside.main()->visibleFrame.left(), left);
    screens.change({screen(u"a"_s, 1, 600, 800)});
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(visible(beside.all()).left(), 200) << "a third of the width";
    server.setDrawingWay({DrawingMechanism::desktopWindow});
    EXPECT_EQ(calls, 3);
    EXPECT_EQ(beside.all(), screens.all());
}

TEST(ScreensBesideIcons, tellOfNothingThatLooksTheSame) {
    FakeScreens screens;
    screens.screens = {screen(u"a"_s, 1, 1200, 800)};
    const auto now = [](const std::function<void()> &action) { action(); };
    const Background background(now, now);
    DesktopIconsWatch icons(std::nullopt, background, QDBusConnection(u"no bus"_s));
    FakeWindowServer server;
    ScreensBesideIcons beside(screens, server, icons);
    int calls = 0;
    const Subscription told = beside.subscribe([&] { ++calls; });
    server.setDrawingWay({DrawingMechanism::rootPixmap});
    screens.change(screens.screens);
    EXPECT_EQ(calls, 0);
    screens.change({});
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(beside.main(), std::nullopt);
}

} // namespace zeph
