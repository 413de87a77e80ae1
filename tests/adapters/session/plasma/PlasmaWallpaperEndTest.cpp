// SPDX-License-Identifier: MIT
#include "PlasmaWallpaperFixture.h"

using namespace Qt::StringLiterals;

namespace zeph {

class PlasmaWallpaperEndTest : public PlasmaWallpaperFixture {
protected:
    /// As at the end of the program.
    void end() {
        wallpaper->giveBack(std::chrono::seconds(10));
        wallpaper.reset();
    }
};

TEST_F(PlasmaWallpaperEndTest, givesEachDesktopItsEarlierWallpaper) {
    plasma.desktops = {{1, image}, {31, u"org.kde.color"_s}};
    plasma.appear();
    openChosen();
    ASSERT_TRUE(shows({{1, ours}, {31, ours}}));
    ASSERT_TRUE(settles(2));
    end();
    EXPECT_TRUE(shows({{1, image}, {31, u"org.kde.color"_s}}));
    EXPECT_EQ(defaults.get<bool>(choiceKey), true) << "for the next start";
    EXPECT_TRUE(defaults.contains(earlierKey));
    EXPECT_TRUE(QFile::exists(target + u"/metadata.json"_s));
}

TEST_F(PlasmaWallpaperEndTest, whatItHasSentArrivesWithoutUs) {
    plasma.appear();
    openChosen();
    ASSERT_TRUE(shows({{1, ours}}));
    ASSERT_TRUE(settles(2));
    end();
    connection.close();
    EXPECT_TRUE(shows({{1, image}}));
}

TEST_F(PlasmaWallpaperEndTest, theNextStartTakesThePlaceOfWhatItGaveBack) {
    plasma.desktops = {{1, image}, {31, u"org.kde.color"_s}};
    plasma.appear();
    for (int run = 0; run < 2; ++run) {
        openChosen();
        ASSERT_TRUE(shows({{1, ours}, {31, ours}})) << "run " << run;
        ASSERT_TRUE(answersCame());
        EXPECT_TRUE(wallpaper->isUsable());
        end();
        ASSERT_TRUE(shows({{1, image}, {31, u"org.kde.color"_s}}));
    }
    EXPECT_EQ(defaults.get<QString>(earlierKey),
              uR"({"1":"org.kde.image","31":"org.kde.color"})"_s);
}

TEST_F(PlasmaWallpaperEndTest, aDesktopThatTheUserGaveAnotherWallpaperBetweenTwoRunsKeepsIt) {
    plasma.desktops = {{1, image}, {2, image}, {3, image}};
    plasma.appear();
    openChosen();
    ASSERT_TRUE(shows({{1, ours}, {2, ours}, {3, ours}}));
    ASSERT_TRUE(settles(2));
    end();
    ASSERT_TRUE(shows({{1, image}, {2, image}, {3, image}}));
    plasma.desktops[1] = u"org.kde.slideshow"_s;
    plasma.pictures[2] = u"another"_s;
    openChosen();
    const Wallpapers expected{{1, u"org.kde.slideshow"_s}, {2, image}, {3, ours}};
    EXPECT_TRUE(shows(expected));
    ASSERT_TRUE(answersCame());
    plasma.desktops[1] = image; // what it had, and by the user's own choice
    wallpaper->lookSoon();
    loop.advance(2.1);
    ASSERT_TRUE(answersCame());
    ASSERT_TRUE(answersCame());
    EXPECT_EQ(plasma.desktops, (Wallpapers{{1, image}, {2, image}, {3, ours}}));
}

TEST_F(PlasmaWallpaperEndTest, leavesADesktopThatTheUserGaveAnotherWallpaper) {
    plasma.desktops = {{1, image}, {31, image}};
    plasma.appear();
    openChosen();
    ASSERT_TRUE(shows({{1, ours}, {31, ours}}));
    ASSERT_TRUE(settles(2));
    plasma.desktops[31] = u"org.kde.slideshow"_s;
    end();
    ASSERT_TRUE(shows({{1, image}, {31, u"org.kde.slideshow"_s}}));
    openChosen();
    EXPECT_TRUE(shows({{1, ours}, {31, u"org.kde.slideshow"_s}}));
}

TEST_F(PlasmaWallpaperEndTest, asksForNothingWhereOursIsNotShown) {
    plasma.appear();
    open();
    wallpaper->setNeeded(true);
    ASSERT_TRUE(answersCame()); // the shell is known
    end();
    open();
    wallpaper->choose(true); // and not known to be needed
    ASSERT_TRUE(answersCame());
    end();
    ASSERT_TRUE(answersCame());
    EXPECT_TRUE(plasma.scripts.isEmpty());
}

TEST_F(PlasmaWallpaperEndTest, nothingIsPutInAgain) {
    plasma.appear();
    openChosen();
    ASSERT_TRUE(shows({{1, ours}}));
    ASSERT_TRUE(settles(2));
    wallpaper->giveBack(std::chrono::seconds(10));
    ASSERT_TRUE(shows({{1, image}}));
    wallpaper->lookSoon();
    wallpaper->choose(false);
    loop.advance(2.1);
    ASSERT_TRUE(answersCame());
    EXPECT_EQ(plasma.scripts.size(), 3);
}

TEST_F(PlasmaWallpaperEndTest, doesNotWaitForABusThatHangs) {
    plasma.appear();
    openChosen();
    ASSERT_TRUE(shows({{1, ours}}));
    ASSERT_TRUE(settles(2));
    bus.freeze();
    wallpaper->giveBack(std::chrono::milliseconds(1));
    EXPECT_EQ(plasma.desktops, (Wallpapers{{1, ours}}));
    bus.thaw();
    EXPECT_TRUE(shows({{1, image}}));
}

TEST_F(PlasmaWallpaperEndTest, doesNotWaitForAShellThatDoesNotAnswer) {
    plasma.appear();
    openChosen();
    ASSERT_TRUE(shows({{1, ours}}));
    ASSERT_TRUE(settles(2));
    plasma.isSilent = true;
    end();
    EXPECT_TRUE(comes([&] { return plasma.scripts.size() == 3; }));
}

} // namespace zeph
