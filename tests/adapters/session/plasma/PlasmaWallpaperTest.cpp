// SPDX-License-Identifier: MIT
#include "PlasmaWallpaperFixture.h"

using namespace Qt::StringLiterals;

namespace zeph {

class PlasmaWallpaperTest : public PlasmaWallpaperFixture {};

TEST_F(PlasmaWallpaperTest, isPutIntoAllDesktopsOnceItIsChosenAndNeeded) {
    plasma.desktops = {{1, image}, {31, u"org.kde.color"_s}};
    plasma.appear();
    open();
    ASSERT_TRUE(answersCame());
    EXPECT_FALSE(wallpaper->isChosen());
    EXPECT_FALSE(wallpaper->isUsable());
    wallpaper->setNeeded(true);
    ASSERT_TRUE(answersCame());
    EXPECT_TRUE(plasma.scripts.isEmpty());

    wallpaper->choose(true);
    EXPECT_TRUE(wallpaper->isUsable());
    EXPECT_TRUE(shows({{1, ours}, {31, ours}}));
    EXPECT_EQ(defaults.get<bool>(choiceKey), true);
    EXPECT_EQ(defaults.get<QString>(earlierKey),
              uR"({"1":"org.kde.image","31":"org.kde.color"})"_s);
}

TEST_F(PlasmaWallpaperTest, isToldWhereThePicturesLie) {
    plasma.appear();
    openChosen();
    ASSERT_TRUE(shows({{1, ours}}));
    EXPECT_EQ(plasma.folders[1], u"file://"_s + pictures);
    EXPECT_EQ(plasma.keptFolders[1], u"file://"_s + kept);
    EXPECT_TRUE(QFile::exists(pictures)) << "since Plasma does not wait for a folder";
    EXPECT_TRUE(QFile::exists(target + u"/metadata.json"_s));
}

TEST_F(PlasmaWallpaperTest, earlierWallpapersAreKeptBeforeTheyAreReplaced) {
    plasma.isDeaf = true;
    plasma.appear();
    openChosen();
    ASSERT_TRUE(settles(2));
    EXPECT_EQ(defaults.get<QString>(earlierKey), uR"({"1":"org.kde.image"})"_s);
}

TEST_F(PlasmaWallpaperTest, earlierWallpapersThatCanNotBeKeptAreNotReplaced) {
    plasma.appear();
    defaults.set(choiceKey, true);
    open();
    defaults.canSave = false;
    wallpaper->setNeeded(true);
    EXPECT_TRUE(comes([&] { return !wallpaper->isUsable(); }));
    EXPECT_EQ(wallpaper->problem(), u"Plasma's earlier wallpapers could not be kept"_s);
    EXPECT_EQ(plasma.desktops, (Wallpapers{{1, image}}));
    wallpaper->choose(false);
    wallpaper->choose(true);
    EXPECT_TRUE(comes([&] { return !wallpaper->isUsable(); }));
    EXPECT_EQ(plasma.desktops, (Wallpapers{{1, image}})) << "neither at the second try";
    defaults.canSave = true;
    wallpaper->choose(false);
    wallpaper->choose(true);
    EXPECT_TRUE(shows({{1, ours}}));
}

TEST_F(PlasmaWallpaperTest, eachDesktopGetsItsEarlierWallpaperBack) {
    plasma.desktops = {{1, image}, {31, u"org.kde.color"_s}};
    plasma.appear();
    openChosen();
    ASSERT_TRUE(shows({{1, ours}, {31, ours}}));
    ASSERT_TRUE(QDir().mkpath(kept));
    wallpaper->choose(false);
    EXPECT_TRUE(shows({{1, image}, {31, u"org.kde.color"_s}}));
    EXPECT_TRUE(comes([&] { return !defaults.contains(earlierKey); }));
    EXPECT_EQ(defaults.get<bool>(choiceKey), false);
    EXPECT_TRUE(comes([&] {
        return !QFile::exists(target) && !QFile::exists(pictures) && !QFile::exists(kept);
    }));
}

TEST_F(PlasmaWallpaperTest, isPutInAgainAfterItWasTakenOut) {
    plasma.appear();
    openChosen();
    ASSERT_TRUE(shows({{1, ours}}));
    wallpaper->choose(false);
    wallpaper->choose(true);
    wallpaper->choose(false);
    ASSERT_TRUE(shows({{1, image}}));
    wallpaper->choose(true);
    EXPECT_TRUE(shows({{1, ours}}));
    EXPECT_TRUE(comes([&] { return QFile::exists(target + u"/metadata.json"_s); }));
}

TEST_F(PlasmaWallpaperTest, givesWayWhileTheDesktopIsToShineThrough) {
    plasma.appear();
    openChosen();
    ASSERT_TRUE(shows({{1, ours}}));
    wallpaper->setNeeded(false);
    EXPECT_TRUE(shows({{1, image}}));
    EXPECT_TRUE(wallpaper->isChosen());
    wallpaper->setNeeded(true);
    EXPECT_TRUE(shows({{1, ours}}));
}

TEST_F(PlasmaWallpaperTest, leavesEverythingWhileItIsNotKnownWhetherItIsNeeded) {
    defaults.set(choiceKey, true);
    defaults.set(earlierKey, keptWallpapers({{1, image}}));
    plasma.desktops = {{1, ours}};
    plasma.appear();
    open();
    ASSERT_TRUE(answersCame());
    ASSERT_TRUE(answersCame());
    EXPECT_TRUE(plasma.scripts.isEmpty());
}

TEST_F(PlasmaWallpaperTest, bringsBackWhatAnEarlierRunCouldNot) {
    defaults.set(earlierKey, keptWallpapers({{1, u"org.kde.color"_s}}));
    plasma.desktops = {{1, ours}};
    plasma.appear();
    open();
    EXPECT_TRUE(shows({{1, u"org.kde.color"_s}}));
}

TEST_F(PlasmaWallpaperTest, aDesktopThatTheUserGaveAnotherWallpaperKeepsIt) {
    defaults.set(earlierKey, keptWallpapers({{1, image}, {31, image}}));
    plasma.desktops = {{1, ours}, {31, u"org.kde.slideshow"_s}};
    plasma.appear();
    openChosen();
    ASSERT_TRUE(settles(2));
    EXPECT_EQ(plasma.desktops, (Wallpapers{{1, ours}, {31, u"org.kde.slideshow"_s}}));
    wallpaper->choose(false);
    EXPECT_TRUE(shows({{1, image}, {31, u"org.kde.slideshow"_s}}));
}

TEST_F(PlasmaWallpaperTest, tellsThatTheUserGaveAllDesktopsAnotherOne) {
    defaults.set(earlierKey, keptWallpapers({{1, image}, {31, image}}));
    plasma.desktops = {{1, ours}, {31, u"org.kde.slideshow"_s}};
    plasma.appear();
    openChosen();
    ASSERT_TRUE(settles(2));
    EXPECT_FALSE(wallpaper->isReplaced()) << "one shows it";
    plasma.desktops[1] = image;
    const int before = changeCount;
    wallpaper->look();
    ASSERT_TRUE(comes([&] { return wallpaper->isReplaced(); }));
    EXPECT_GT(changeCount, before);
    EXPECT_TRUE(wallpaper->isUsable()) << "what the user chose is not covered";
    wallpaper->setNeeded(false);
    EXPECT_FALSE(wallpaper->isReplaced()) << "another one is what is to be seen";
    wallpaper->setNeeded(true);
    wallpaper->choose(false);
    EXPECT_FALSE(wallpaper->isReplaced());
    ASSERT_TRUE(comes([&] { return !defaults.contains(earlierKey); }));
    wallpaper->choose(true);
    EXPECT_TRUE(shows({{1, ours}, {31, ours}}));
    EXPECT_FALSE(wallpaper->isReplaced());
}

TEST_F(PlasmaWallpaperTest, isPutIntoADesktopThatComesLater) {
    plasma.appear();
    openChosen();
    ASSERT_TRUE(shows({{1, ours}}));
    ASSERT_TRUE(settles(2));
    plasma.desktops[7] = u"org.kde.color"_s;
    plasma.changeActivity();
    ASSERT_TRUE(answersCame());
    loop.advance(2.1);
    EXPECT_TRUE(shows({{1, ours}, {7, ours}}));
    EXPECT_EQ(defaults.get<QString>(earlierKey), uR"({"1":"org.kde.image","7":"org.kde.color"})"_s);
}

TEST_F(PlasmaWallpaperTest, isStillInAfterTheShellStartedAnew) {
    plasma.appear();
    openChosen();
    ASSERT_TRUE(shows({{1, ours}}));
    ASSERT_TRUE(settles(2));
    const QString start = plasma.starts[1];
    plasma.vanish();
    ASSERT_TRUE(comes([&] { return !wallpaper->isUsable(); }));
    EXPECT_EQ(wallpaper->problem(), u"Plasma's shell does not run"_s);
    plasma.appear();
    ASSERT_TRUE(comes([&] { return wallpaper->isUsable(); }));
    ASSERT_TRUE(settles(4));
    EXPECT_EQ(plasma.desktops, (Wallpapers{{1, ours}}));
    EXPECT_NE(plasma.starts[1], start) << "it looks for its folder anew";
    EXPECT_EQ(defaults.get<QString>(earlierKey), uR"({"1":"org.kde.image"})"_s);
}

TEST_F(PlasmaWallpaperTest, waitsForAShellThatIsStillStarting) {
    plasma.desktops = {};
    plasma.appear();
    openChosen();
    ASSERT_TRUE(settles(1));
    EXPECT_TRUE(wallpaper->isUsable());
    plasma.desktops = {{1, image}};
    loop.advance(1.1);
    EXPECT_TRUE(shows({{1, ours}}));
}

TEST_F(PlasmaWallpaperTest, tellsThatTheShellRefusesIt) {
    plasma.isLocked = true;
    plasma.appear();
    openChosen();
    for (int tries = 1; tries <= 6; ++tries) {
        EXPECT_TRUE(wallpaper->isUsable());
        ASSERT_TRUE(settles(tries));
        loop.advance(32.1);
    }
    EXPECT_TRUE(comes([&] { return !wallpaper->isUsable(); }));
    EXPECT_EQ(wallpaper->problem(), u"Plasma did not take Tavi's own wallpaper"_s);
    EXPECT_EQ(changeCount, 1);
}

TEST_F(PlasmaWallpaperTest, refusedIsAlsoWhatIsTakenAndHasNoEffect) {
    plasma.isDeaf = true;
    plasma.appear();
    openChosen();
    for (int tries = 1; tries <= 6; ++tries) {
        ASSERT_TRUE(settles(2 * tries));
        loop.advance(32.1);
    }
    EXPECT_TRUE(comes([&] { return !wallpaper->isUsable(); }));
    EXPECT_EQ(plasma.desktops, (Wallpapers{{1, image}}));
}

TEST_F(PlasmaWallpaperTest, aDesktopThatDidNotTakeItAtOnceIsAskedAgain) {
    plasma.isDeaf = true;
    plasma.appear();
    openChosen();
    ASSERT_TRUE(settles(2));
    plasma.isDeaf = false;
    loop.advance(1.1);
    EXPECT_TRUE(shows({{1, ours}}));
}

TEST_F(PlasmaWallpaperTest, aDesktopThatGoesBeforeItTookItIsNotWaitedFor) {
    plasma.isDeaf = true;
    plasma.desktops = {{1, image}, {31, image}};
    plasma.appear();
    openChosen();
    ASSERT_TRUE(settles(2));
    plasma.isDeaf = false;
    plasma.desktops.erase(31);
    loop.advance(1.1);
    EXPECT_TRUE(shows({{1, ours}}));
    ASSERT_TRUE(settles(4));
    for (int i = 0; i < 6; ++i) {
        loop.advance(32.1);
        ASSERT_TRUE(answersCame());
        ASSERT_TRUE(answersCame());
    }
    EXPECT_EQ(plasma.scripts.size(), 4) << "it is done";
    defaults.canSave = false;
    plasma.changeActivity();
    ASSERT_TRUE(answersCame());
    loop.advance(2.1);
    ASSERT_TRUE(settles(6));
    EXPECT_TRUE(wallpaper->isUsable()) << "there is nothing to keep";
    defaults.canSave = true;
    plasma.desktops[31] = image;
    plasma.changeActivity();
    ASSERT_TRUE(answersCame());
    loop.advance(2.1);
    EXPECT_TRUE(shows({{1, ours}, {31, ours}})) << "it came back";
}

TEST_F(PlasmaWallpaperTest, tellsThatTheShellDoesNotRun) {
    openChosen();
    EXPECT_TRUE(comes([&] { return !wallpaper->isUsable(); }));
    EXPECT_EQ(wallpaper->problem(), u"Plasma's shell does not run"_s);
    plasma.appear();
    EXPECT_TRUE(shows({{1, ours}}));
    EXPECT_EQ(wallpaper->problem(), QString());
}

TEST_F(PlasmaWallpaperTest, aShellThatGoesInTheMiddleIsAskedFromTheBeginning) {
    plasma.isSilent = true;
    plasma.appear();
    openChosen();
    ASSERT_TRUE(settles(1));
    plasma.vanish();
    ASSERT_TRUE(comes([&] { return !wallpaper->isUsable(); }));
    plasma.isSilent = false;
    plasma.appear();
    EXPECT_TRUE(shows({{1, ours}}));
}

TEST_F(PlasmaWallpaperTest, isTakenOutWhenPicturesCanNotBeWritten) {
    plasma.appear();
    openChosen();
    ASSERT_TRUE(shows({{1, ours}}));
    ASSERT_TRUE(settles(2));
    wallpaper->picturesRefused();
    EXPECT_FALSE(wallpaper->isUsable());
    EXPECT_EQ(wallpaper->problem(), u"Tavi's pictures for Plasma could not be written"_s);
    EXPECT_TRUE(shows({{1, image}}));
    EXPECT_TRUE(comes([&] { return !defaults.contains(earlierKey); }));
    EXPECT_FALSE(wallpaper->isUsable()) << "until it is chosen again";
    wallpaper->choose(false);
    wallpaper->choose(true);
    EXPECT_TRUE(wallpaper->isUsable());
    EXPECT_TRUE(shows({{1, ours}}));
}

TEST_F(PlasmaWallpaperTest, givesBackWhatAKilledRunPutInWherePicturesCanNotBeWritten) {
    QDir().mkpath(QFileInfo(pictures).path());
    QFile inTheWay(pictures);
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    defaults.set(earlierKey, keptWallpapers({{1, image}}));
    plasma.desktops = {{1, ours}};
    plasma.appear();
    openChosen();
    EXPECT_TRUE(shows({{1, image}}));
    EXPECT_FALSE(wallpaper->isUsable());
    EXPECT_EQ(wallpaper->problem(), u"Tavi's pictures for Plasma could not be written"_s);
    EXPECT_TRUE(comes([&] { return !defaults.contains(earlierKey); }));
}

TEST_F(PlasmaWallpaperTest, withdrawsWhenTheProgramIsGoneFromTheMachine) {
    plasma.appear();
    openChosen();
    ASSERT_TRUE(shows({{1, ours}}));
    ASSERT_TRUE(settles(2));
    wallpaper->withdraw();
    EXPECT_FALSE(wallpaper->isUsable());
    EXPECT_TRUE(shows({{1, image}}));
    EXPECT_TRUE(comes([&] { return !QFile::exists(target) && !QFile::exists(pictures); }));
    EXPECT_EQ(defaults.get<bool>(choiceKey), true) << "for when it is installed again";
}

TEST_F(PlasmaWallpaperTest, tellsThatThePackageCouldNotBeInstalled) {
    QFile::remove(room.filePath(u"from/metadata.json"_s));
    plasma.appear();
    openChosen();
    EXPECT_TRUE(comes([&] { return !wallpaper->isUsable(); }));
    EXPECT_EQ(wallpaper->problem(),
              u"Tavi's own wallpaper could not be put where Plasma looks for it"_s);
    EXPECT_EQ(plasma.desktops, (Wallpapers{{1, image}}));
}

} // namespace zeph
