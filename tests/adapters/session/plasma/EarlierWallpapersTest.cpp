// SPDX-License-Identifier: MIT
#include "adapters/session/plasma/EarlierWallpapers.h"

#include "PlasmaFixture.h"
#include "support/Environment.h"
#include "support/QtPrinters.h"

#include <future>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

class EarlierWallpapersTest : public PlasmaFixture {
protected:
    EarlierWallpapersTest() {
        defaults.set(earlierKey, keptWallpapers({{1, u"org.kde.color"_s}}));
        plasma.desktops = {{1, ours}, {7, u"org.kde.slideshow"_s}};
        QDir().mkpath(packageFolder);
        QDir().mkpath(pictures);
        QDir().mkpath(kept);
    }

    /// It waits for the bus on a thread of its own.
    WallpapersBack bringBack() {
        auto future = std::async(
            std::launch::async, [this] { return bringWallpapersBack(connection.bus(), defaults); });
        EXPECT_TRUE(eventually(
            [&] { return future.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }));
        return future.get();
    }

    const QString packageFolder = room.filePath(u"data/plasma/wallpapers/com.tavi.Tavi"_s);
    const ScopedVariable data{"XDG_DATA_HOME", QFile::encodeName(room.filePath(u"data"_s))};
    const ScopedVariable cache{"XDG_CACHE_HOME", QFile::encodeName(room.filePath(u"cache"_s))};
    const ScopedVariable runtime{"XDG_RUNTIME_DIR", QFile::encodeName(room.filePath(u"runtime"_s))};
};

} // namespace

TEST_F(EarlierWallpapersTest, comeBackToTheDesktopsThatShowOurs) {
    plasma.appear();
    EXPECT_EQ(bringBack(), WallpapersBack::done);
    EXPECT_EQ(plasma.desktops,
              (std::map<int, QString>{{1, u"org.kde.color"_s}, {7, u"org.kde.slideshow"_s}}));
    EXPECT_FALSE(defaults.contains(earlierKey));
    EXPECT_FALSE(QFile::exists(packageFolder));
    EXPECT_FALSE(QFile::exists(pictures));
    EXPECT_FALSE(QFile::exists(kept));
    EXPECT_EQ(bringBack(), WallpapersBack::nothingKept);
}

TEST_F(EarlierWallpapersTest, areStillKeptWhereTheSettingsCanNotBeWritten) {
    plasma.appear();
    defaults.canSave = false;
    EXPECT_EQ(bringBack(), WallpapersBack::notSaved);
    EXPECT_EQ(plasma.desktops.at(1), u"org.kde.color"_s);
}

TEST_F(EarlierWallpapersTest, areNobodysWhereNoneWereKept) {
    defaults.remove(earlierKey);
    plasma.appear();
    EXPECT_EQ(bringBack(), WallpapersBack::nothingKept);
    EXPECT_TRUE(plasma.scripts.isEmpty());
    EXPECT_TRUE(QFile::exists(packageFolder));
}

TEST_F(EarlierWallpapersTest, areStillKeptWithoutTheShell) {
    EXPECT_EQ(bringBack(), WallpapersBack::noShell);
    plasma.desktops = {};
    plasma.appear();
    EXPECT_EQ(bringBack(), WallpapersBack::noShell) << "it is still starting";
    bus.stop();
    EXPECT_TRUE(eventually([&] { return !connection.bus().isConnected(); }));
    EXPECT_EQ(bringBack(), WallpapersBack::noShell);
    EXPECT_TRUE(defaults.contains(earlierKey));
    EXPECT_TRUE(QFile::exists(packageFolder));
}

TEST_F(EarlierWallpapersTest, areStillKeptWhereTheShellRefuses) {
    plasma.appear();
    plasma.isLocked = true;
    EXPECT_EQ(bringBack(), WallpapersBack::refused);
    plasma.isLocked = false;
    plasma.isDeaf = true;
    EXPECT_EQ(bringBack(), WallpapersBack::refused) << "nothing became of it";
    EXPECT_TRUE(defaults.contains(earlierKey));
    EXPECT_TRUE(QFile::exists(packageFolder));
}

} // namespace zeph
