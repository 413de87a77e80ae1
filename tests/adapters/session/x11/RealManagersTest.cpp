// SPDX-License-Identifier: MIT
#include "X11Fixture.h"

#include "adapters/session/x11/InsistenceLimit.h"
#include "adapters/session/x11/X11ReservedSpace.h"

#include <gmock/gmock.h>

#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const QPoint kPlace(900, 600);

/// A display with window managers as people have them.
class RealManagersTest : public X11Test {
protected:
    RealManagersTest() {
        // One of them leaves its socket there.
        session.setVariable("XDG_RUNTIME_DIR", runtime.path().toLocal8Bit());
    }

    DrawingMechanism mechanism() { return server->drawingWay().mechanism; }

    /// i3 with the bar that it brings along.
    void startI3WithBar() {
        QFile file(runtime.filePath(u"config"_s));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("# i3 config file (v4)\nbar {\n id bar\n mode dock\n}\n");
        file.close();
        session.start({u"i3"_s, u"-c"_s, file.fileName()});
    }

    pid_t startI3() { return session.start({u"i3"_s, u"-c"_s, u"/dev/null"_s}); }

    bool becomes(DrawingMechanism wanted) {
        server->settle();
        return waitUntil([&] { return mechanism() == wanted; });
    }

    /// Of a manager, and not for want of one.
    bool becomesDesktopWindow() {
        return becomes(DrawingMechanism::desktopWindow) && waitUntil([&] {
                   return server->drawingWay().reason.contains(u"knows desktop windows"_s);
               });
    }

    bool isLowest(const DesktopSurface &surface) {
        return client->stacking().value(0) == windowOf(surface);
    }

    QTemporaryDir runtime;
};

} // namespace

TEST_F(RealManagersTest, theBarOfI3TakesItsRoomThoughItIsInNoList) {
    const X11ReservedSpace space(*connection);
    startI3WithBar();
    const auto bottom = [&] { return space.margins(kWholeScreen).bottom(); };
    EXPECT_TRUE(waitUntil([&] { return bottom() > 0; }));
    const auto setMode = [&](const QString &mode) {
        return !session.run({u"i3-msg"_s, u"bar"_s, u"mode"_s, mode, u"bar"_s}).isNull();
    };
    ASSERT_TRUE(setMode(u"invisible"_s));
    EXPECT_TRUE(waitUntil([&] { return bottom() == 0; }));
    ASSERT_TRUE(setMode(u"dock"_s));
    EXPECT_TRUE(waitUntil([&] { return bottom() > 0; }));
}

TEST_F(RealManagersTest, aManagerWithoutDesktopWindowsHasOneLoweredByUs) {
    ASSERT_EQ(mechanism(), DrawingMechanism::desktopWindow);
    int calls = 0;
    server->settle();
    const Subscription told = server->subscribeToDrawingWay([&] { ++calls; });
    startI3();
    ASSERT_TRUE(becomes(DrawingMechanism::loweredOverride));
    EXPECT_EQ(calls, 1);
    EXPECT_THAT(server->drawingWay().reason.toStdString(), testing::HasSubstr("knows no desktop"));
}

TEST_F(RealManagersTest, theLoweredWindowStaysBeneathAllOthers) {
    startI3();
    ASSERT_TRUE(becomes(DrawingMechanism::loweredOverride));
    const auto surface = showSurface(Qt::blue);
    EXPECT_TRUE(isLowest(*surface));
    const auto normal = client->show({.geometry = {100, 100, 200, 150}, .colour = 0xFF0000});
    ASSERT_TRUE(waitForPixel(kPlace, Qt::red)) << "windows fill the screen here";
    session.run({u"i3-msg"_s, u"workspace"_s, u"2"_s});
    EXPECT_TRUE(waitForPixel(kPlace, Qt::blue)) << "it is on every workspace";
    session.run({u"i3-msg"_s, u"workspace"_s, u"1"_s});
    EXPECT_TRUE(waitForPixel(kPlace, Qt::red));
    client->destroy(normal);
    EXPECT_TRUE(waitForPixel(kPlace, Qt::blue));
    EXPECT_TRUE(isLowest(*surface));
}

TEST_F(RealManagersTest, theLoweredWindowGoesBackBeneathAllOthers) {
    startI3();
    ASSERT_TRUE(becomes(DrawingMechanism::loweredOverride));
    const auto surface = showSurface(Qt::blue);
    client->raise(windowOf(*surface));
    ASSERT_TRUE(waitUntil([&] { return !isLowest(*surface); }));
    client->show({.geometry = {100, 100, 200, 150}, .colour = 0xFF0000});
    EXPECT_TRUE(waitForPixel(kPlace, Qt::red));
    EXPECT_TRUE(waitUntil([&] { return isLowest(*surface); }));
}

TEST_F(RealManagersTest, theMechanismFollowsTheManager) {
    const pid_t i3 = startI3();
    ASSERT_TRUE(becomes(DrawingMechanism::loweredOverride));
    session.stop(i3);
    EXPECT_TRUE(becomes(DrawingMechanism::desktopWindow));
    session.start({u"openbox"_s, u"--sm-disable"_s});
    EXPECT_TRUE(waitUntil(
        [&] { return server->drawingWay().reason.contains(u"knows desktop windows"_s); }));
    EXPECT_EQ(mechanism(), DrawingMechanism::desktopWindow);
}

/// A manager that does not put windows in an order that it is asked for.
TEST_F(RealManagersTest, comesBackAboveADesktopThatIsRaisedWithoutRestacking) {
    session.start({u"marco"_s, u"--no-composite"_s});
    ASSERT_TRUE(becomesDesktopWindow());
    const auto base = client->show(
        {.geometry = kWholeScreen, .colour = 0x552200, .type = kDesktopType, .name = "Base"});
    const auto surface = showSurface(Qt::blue);
    for (int i = 0; i < 3; ++i) {
        client->activate(base);
        client->raise(base);
        waitUntil([&] { return client->pixel(kPlace) == 0x552200; },
                  std::chrono::milliseconds(200));
        EXPECT_TRUE(waitForPixel(kPlace, Qt::blue));
    }
}

TEST_F(X11OpenboxTest, liesBeneathADesktopThatShinesThrough) {
    const auto base = client->show({.geometry = kWholeScreen,
                                    .colour = 0x552200,
                                    .type = kDesktopType,
                                    .instance = "nemo-desktop",
                                    .name = "Nemo-desktop"});
    server->settle();
    session.start({u"picom"_s, u"--config"_s, u"/dev/null"_s, u"--backend"_s, u"xrender"_s});
    ASSERT_TRUE(waitUntil(
        [&] { return server->drawingWay().mechanism == DrawingMechanism::underDesktopProgram; }));
    const auto surface = server->makeDesktopSurface(wholeScreen(), false);
    fill(*surface, Qt::blue);
    surface->orderFront();
    const auto window = windowOf(*surface);
    const auto isBeneath = [&] {
        const auto order = client->stacking();
        return client->isViewable(window) &&
               order.indexOf(client->frameOf(window)) < order.indexOf(client->frameOf(base));
    };
    ASSERT_TRUE(waitUntil(isBeneath));
    for (int i = 0; i < 3; ++i) {
        client->raise(window);
        waitUntil([&] { return !isBeneath(); }, std::chrono::milliseconds(300));
        EXPECT_TRUE(waitUntil(isBeneath));
    }
}

TEST_F(X11OpenboxTest, goesBackToItsScreenWhenItIsMovedOrResized) {
    const auto surface = showSurface(Qt::blue);
    const auto window = windowOf(*surface);
    for (const QString &place : {u"0,100,100,600,400"_s, u"0,-300,0,1280,800"_s}) {
        session.run({u"wmctrl"_s, u"-i"_s, u"-r"_s, QString::number(window), u"-e"_s, place});
        waitUntil([&] { return client->geometry(window) != kWholeScreen; },
                  std::chrono::milliseconds(300));
        EXPECT_TRUE(waitUntil([&] { return client->geometry(window) == kWholeScreen; }));
    }
    EXPECT_TRUE(waitForPixel(kPlace, Qt::blue));
}

TEST(InsistenceLimitTest, stopsAfterSoManyQuestionsAndLooksAgainAfterTheBurst) {
    int looks = 0;
    InsistenceLimit limit([&] { ++looks; }, std::chrono::milliseconds(20));
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(limit.allows(3));
    }
    EXPECT_FALSE(limit.allows(3));
    EXPECT_TRUE(waitUntil([&] { return looks == 1; }));
    EXPECT_TRUE(limit.allows(3)) << "the next burst begins anew";
}

TEST(InsistenceLimitTest, restsWhenNothingWasCutOff) {
    int looks = 0;
    InsistenceLimit limit([&] { ++looks; }, std::chrono::milliseconds(1));
    EXPECT_TRUE(limit.allows(1));
    runLoopFor(std::chrono::milliseconds(30));
    EXPECT_EQ(looks, 0);
}

} // namespace zeph
