// SPDX-License-Identifier: MIT
#include "adapters/session/plasma/PlasmaWindowServer.h"

#include "PlasmaFixture.h"
#include "ShownPictures.h"
#include "adapters/session/plasma/PlasmaPictureSurface.h"
#include "support/FakeScreens.h"
#include "support/FakeWindowServer.h"
#include "support/FullDisk.h"
#include "support/QtPrinters.h"

using namespace Qt::StringLiterals;

namespace zeph {

class PlasmaWindowServerTest : public PlasmaFixture {
protected:
    void SetUp() override {
        PlasmaFixture::SetUp();
        screens.screens = {output(u"DP-1"_s)};
        plasma.appear();
    }

    static Screen output(const QString &connector) {
        Screen made = screen(connector, 1, 40, 30);
        made.connector = connector;
        return made;
    }

    void open(bool isChosen) {
        defaults.set(choiceKey, isChosen);
        makeWallpaper();
        server.emplace(PlasmaWindowServer::Parties{own,
                                                   [this](const PlasmaPermission &given) {
                                                       permission = given;
                                                       choose();
                                                   },
                                                   screens, *wallpaper, background, loop},
                       PictureFolders(pictures, kept));
    }

    /// As the display system does.
    void choose() {
        own.setDrawingWay({permission.isGranted ? DrawingMechanism::plasmaPictures
                                                : DrawingMechanism::layerSurface,
                           permission.problem});
    }

    std::unique_ptr<DesktopSurface> make(bool wantsTransparency = false) {
        auto surface = server->makeDesktopSurface(screens.screens.front(), wantsTransparency);
        surface->orderFront();
        return surface;
    }
    static bool isPictures(const DesktopSurface &surface) {
        return dynamic_cast<const PlasmaPictureSurface *>(&surface) != nullptr;
    }

    bool shows(const QString &package) {
        return comes([&] { return plasma.desktops[1] == package; });
    }

    FakeScreens screens;
    FakeWindowServer own;
    PlasmaPermission permission;
    std::optional<PlasmaWindowServer> server;
};

TEST_F(PlasmaWindowServerTest, givesTheSurfacesOfTheDisplaySystemUntilItIsAllowed) {
    open(false);
    EXPECT_EQ(permission, PlasmaPermission{});
    const auto surface = make();
    EXPECT_FALSE(isPictures(*surface));
    EXPECT_EQ(server->drawingWay().mechanism, DrawingMechanism::layerSurface);
    EXPECT_EQ(own.logs.size(), 1U);
}

TEST_F(PlasmaWindowServerTest, givesPicturesFromTheFirstSurfaceOnWhereItIsAllowed) {
    open(true);
    EXPECT_TRUE(permission.isGranted);
    const auto surface = make();
    EXPECT_TRUE(isPictures(*surface));
    EXPECT_TRUE(own.logs.empty());
    EXPECT_TRUE(shows(ours));
    EXPECT_TRUE(comes([&] { return picturesIn(pictures + u"/DP-1"_s).size() == 1; }));
}

TEST_F(PlasmaWindowServerTest, tellsOfAnotherWayWhenItIsAllowedAndForbidden) {
    open(false);
    int tellings = 0;
    const Subscription ways = server->subscribeToDrawingWay([&] { ++tellings; });
    auto surface = make();
    wallpaper->choose(true);
    EXPECT_EQ(tellings, 1);
    surface = make();
    EXPECT_TRUE(isPictures(*surface));
    EXPECT_TRUE(shows(ours));
    wallpaper->choose(false);
    EXPECT_EQ(server->drawingWay().mechanism, DrawingMechanism::layerSurface);
    EXPECT_TRUE(shows(image));
}

TEST_F(PlasmaWindowServerTest, aTransparentSurfaceLiesOverTheUsersOwnWallpaper) {
    own.compositing = true;
    open(true);
    auto surface = make();
    ASSERT_TRUE(shows(ours));
    surface = make(true);
    EXPECT_FALSE(isPictures(*surface));
    EXPECT_TRUE(surface->isTransparent());
    EXPECT_EQ(server->drawingWay().mechanism, DrawingMechanism::plasmaPictures)
        << "whoever makes it is not told meanwhile";
    EXPECT_TRUE(shows(image));
    EXPECT_EQ(server->drawingWay().mechanism, DrawingMechanism::layerSurface);
    surface = make();
    loop.drain();
    surface = make();
    EXPECT_TRUE(isPictures(*surface));
    EXPECT_TRUE(shows(ours));
}

TEST_F(PlasmaWindowServerTest, picturesStayWhereNothingCanShineThrough) {
    open(true);
    const auto surface = make(true);
    EXPECT_TRUE(isPictures(*surface));
    EXPECT_TRUE(shows(ours));
}

TEST_F(PlasmaWindowServerTest, goesBackToTheOtherWayWhenPicturesCanNotBeWritten) {
    open(true);
    auto surface = make();
    ASSERT_TRUE(shows(ours));
    ASSERT_TRUE(comes([&] { return picturesIn(pictures + u"/DP-1"_s).size() == 1; }));
    {
        const FullDisk full(100);
        surface->show([](QImage &frame) { return QRegion(frame.rect()); });
        ASSERT_TRUE(comes([&] { return !permission.isGranted; }));
    }
    EXPECT_EQ(permission.problem, u"Tavi's pictures for Plasma could not be written"_s);
    EXPECT_EQ(server->drawingWay().mechanism, DrawingMechanism::layerSurface);
    surface = make();
    EXPECT_FALSE(isPictures(*surface));
    EXPECT_TRUE(shows(image));
}

TEST_F(PlasmaWindowServerTest, aProblemIsNoneWhereNobodyChoseIt) {
    plasma.isLocked = true;
    defaults.set(earlierKey, keptWallpapers({{1, image}}));
    open(false);
    ASSERT_TRUE(comes([&] {
        loop.advance(40);
        return !wallpaper->problem().isEmpty();
    }));
    EXPECT_EQ(permission, PlasmaPermission{});
}

TEST_F(PlasmaWindowServerTest, aPictureOfEachDisplayOutlivesTheSession) {
    open(true);
    const auto surface = make();
    ASSERT_TRUE(comes([&] { return QFile::exists(kept + u"/DP-1"_s); }));
    ASSERT_TRUE(QFile::remove(kept + u"/DP-1"_s));
    server->keepPictures(std::chrono::milliseconds(0));
    executor.runAll();
    EXPECT_TRUE(QFile::exists(kept + u"/DP-1"_s)) << "the last one once more";
}

TEST_F(PlasmaWindowServerTest, noPictureOutlivesItOnceItIsDrawnInAnotherWay) {
    open(true);
    const auto surface = make();
    ASSERT_TRUE(shows(ours));
    ASSERT_TRUE(comes([&] { return QFile::exists(kept + u"/DP-1"_s); }));
    wallpaper->choose(false);
    ASSERT_TRUE(comes([&] { return !QFile::exists(kept); }));
    server->keepPictures(std::chrono::milliseconds(0));
    executor.runAll();
    EXPECT_FALSE(QFile::exists(kept));
}

TEST_F(PlasmaWindowServerTest, picturesOfADisplayThatIsGoneAreRemoved) {
    open(true);
    auto surface = make();
    ASSERT_TRUE(comes([&] { return picturesIn(pictures + u"/DP-1"_s).size() == 1; }));
    surface.reset();
    screens.change({output(u"DP-2"_s)});
    surface = make();
    EXPECT_TRUE(comes([&] { return !QFile::exists(pictures + u"/DP-1"_s); }));
    EXPECT_TRUE(comes([&] { return picturesIn(pictures + u"/DP-2"_s).size() == 1; }));
}

TEST_F(PlasmaWindowServerTest, picturesOfADisplayThatIsBackAtOnceStay) {
    open(true);
    auto surface = make();
    ASSERT_TRUE(comes([&] { return picturesIn(pictures + u"/DP-1"_s).size() == 1; }));
    surface.reset();
    screens.change({});
    screens.change({output(u"DP-1"_s)});
    surface = make();
    executor.runAll();
    loop.drain();
    EXPECT_EQ(picturesIn(pictures + u"/DP-1"_s).size(), 1);
}

TEST_F(PlasmaWindowServerTest, desktopsOfDisplaysThatComeGetItToo) {
    open(true);
    const auto surface = make();
    ASSERT_TRUE(shows(ours));
    ASSERT_TRUE(comes([&] { return plasma.scripts.size() == 2; }));
    ASSERT_TRUE(comes([&] { return defaults.contains(earlierKey); }));
    plasma.desktops[2] = image;
    screens.change({output(u"DP-1"_s), output(u"DP-2"_s)});
    loop.advance(2.1);
    EXPECT_TRUE(comes([&] { return plasma.desktops[2] == ours; }));
}

} // namespace zeph
