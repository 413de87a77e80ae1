// SPDX-License-Identifier: MIT
#include "TaviFixture.h"

using namespace Qt::StringLiterals;

namespace zeph {

using WallpaperTest = TaviTest;

namespace {

const QRect kWholeScreen(0, 0, 1280, 800);
constexpr std::uint32_t kBaseColour = 0x552200;

/// The rows of the corner of the clock that have bright pixels, counted from the lower edge of the
/// screen. They are the same whatever time it is.
QList<int> rowsOfTheClock(const QImage &screen) {
    constexpr int kBright = 200;
    QList<int> rows;
    for (int fromBelow = 162; fromBelow > 52; --fromBelow) {
        for (int x = 30; x < 430; ++x) {
            if (qGray(screen.pixel(x, screen.height() - fromBelow)) > kBright) {
                rows.append(fromBelow);
                break;
            }
        }
    }
    return rows;
}

} // namespace

TEST_F(WallpaperTest, coversTheScreenAndShowsText) {
    startWindowManager();
    // The window manager greets with the name of the desktop for a moment.
    ASSERT_TRUE(waitUntil([this] { return countBarePixels() == 1280 * 800; }, kPatience));
    const Program tavi(environment());
    ASSERT_TRUE(waitForWallpaper());
    EXPECT_EQ(client->geometry(client->find("Tavi")), kWholeScreen);
    EXPECT_TRUE(waitForWords(u"YOUR RHYTHM"_s)) << lastWords.toStdString();
    EXPECT_TRUE(lastWords.contains(u"YOUR MACHINE"_s)) << lastWords.toStdString();
}

TEST_F(WallpaperTest, letsClicksThroughToTheDesktopBeneath) {
    startWindowManager();
    const auto base = client->show(
        {.geometry = kWholeScreen, .colour = kBaseColour, .type = "_NET_WM_WINDOW_TYPE_DESKTOP"});
    const QPoint spot(900, 600);
    ASSERT_TRUE(waitUntil([&] { return client->pixel(spot) == kBaseColour; }));
    const Program tavi(environment());
    ASSERT_TRUE(waitUntil([&] { return client->pixel(spot) != kBaseColour; }, kPatience));
    const auto click = [&] {
        session.run({u"xdotool"_s, u"mousemove"_s, QString::number(spot.x()),
                     QString::number(spot.y()), u"click"_s, u"1"_s});
        return client->takeClicks(base);
    };
    // The window manager hears of the shape of the wallpaper after it is on the screen.
    ASSERT_TRUE(waitUntil([&] { return click() == 1; }));
    EXPECT_EQ(click(), 1);
    // The click has the manager raise the other one first.
    EXPECT_TRUE(waitUntil([&] { return client->pixel(spot) != kBaseColour; }, kPatience));
}

TEST_F(WallpaperTest, followsTheSizeOfTheScreen) {
    startWindowManager();
    writeSettings(R"({"zeph.clock.24h": true})");
    const Program tavi(environment());
    ASSERT_TRUE(waitForWallpaper());
    const QList<int> rows = rowsOfTheClock(screenshot());
    ASSERT_GT(rows.size(), 30);
    const auto xrandr = [&](const QStringList &words) {
        ASSERT_FALSE(session.run(QStringList{u"xrandr"_s} + words).isNull());
    };
    xrandr({u"--newmode"_s, u"small"_s, u"0"_s, u"1024"_s, u"0"_s, u"0"_s, u"1024"_s, u"768"_s,
            u"0"_s, u"0"_s, u"768"_s});
    xrandr({u"--addmode"_s, u"screen"_s, u"small"_s});
    xrandr({u"--output"_s, u"screen"_s, u"--mode"_s, u"small"_s});
    const QRect smaller(0, 0, 1024, 768);
    ASSERT_TRUE(waitUntil(
        [&] {
            return client->geometry(client->root()) == smaller &&
                   client->geometry(client->find("Tavi")) == smaller;
        },
        kPatience));
    EXPECT_TRUE(waitForWallpaper());
    // The clock keeps its distance from the corner. Reading it would take another minute whenever
    // a digit is mistaken.
    EXPECT_TRUE(waitUntil([&] { return rowsOfTheClock(screenshot()) == rows; }));
    EXPECT_TRUE(tavi.isRunning());
}

TEST_F(WallpaperTest, ofAProgramThatCameBeforeTheWindowManagerGetsOnTheScreen) {
    const Program tavi(environment());
    ASSERT_TRUE(waitUntil([&] { return client->find("Tavi") != 0; }, kPatience));
    startWindowManager();
    ASSERT_TRUE(waitForWallpaper());
    const auto window = client->show({.geometry = {300, 200, 200, 150}, .colour = 0x00FF00});
    EXPECT_TRUE(waitUntil([&] {
        return client->pixel(client->geometry(window).center()) == 0x00FF00;
    })) << "the wallpaper hides other windows";
}

} // namespace zeph
