// SPDX-License-Identifier: MIT
#include "platform/linux/qt/QtScreens.h"

#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11ReservedSpace.h"
#include "support/WaitUntil.h"
#include "support/XTestClient.h"
#include "support/XvfbSession.h"

#include <QGuiApplication>
#include <QScreen>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

// The toolkit's connection has to find its display before the application object is made.
XvfbSession *g_session = nullptr; // NOLINT: set by main for the tests of this one file

QByteArray xrandr(const QStringList &arguments) {
    return g_session->run(QStringList{u"xrandr"_s} + arguments);
}

void setMonitor(const QString &name, const QString &geometry, const QString &output) {
    ASSERT_FALSE(xrandr({u"--setmonitor"_s, name, geometry, output}).isNull());
}

/// Displays with panels, as the program puts them together.
class QtScreensWithPanels : public testing::Test {
protected:
    QtScreensWithPanels() {
        if (!g_session->startOpenbox()) {
            throw std::runtime_error("openbox did not start");
        }
        space.setChangeHandler([this] { screens.noteReservedMargins(); });
        screens.setChangeHandler([this] { ++calls; });
    }

    void splitTheScreen() {
        setMonitor(u"left"_s, u"640/100x800/100+0+0"_s, u"screen"_s);
        setMonitor(u"right"_s, u"640/100x800/100+640+0"_s, u"none"_s);
        ASSERT_TRUE(waitUntil([&] { return screens.all().size() == 2 && calls > 0; }));
    }

    /// A panel that keeps its own place free.
    xcb_window_t showPanel(const QRect &place, const QList<std::uint32_t> &strut) {
        const xcb_window_t window =
            client.show({.geometry = place, .type = "_NET_WM_WINDOW_TYPE_DOCK", .name = "Panel"});
        client.setNumbers(window, "_NET_WM_STRUT_PARTIAL", strut);
        return window;
    }

    bool waitForFrames(const std::vector<QRectF> &frames) {
        return waitUntil([&] {
            const auto all = screens.all();
            return std::equal(all.begin(), all.end(), frames.begin(), frames.end(),
                              [](const Screen &screen, const QRectF &frame) {
                                  return screen.visibleFrame == frame;
                              });
        });
    }

    std::unique_ptr<X11Connection> connection = X11Connection::open(g_session->display());
    XTestClient client{g_session->display()};
    X11ReservedSpace space{*connection};
    QtScreens screens{nullptr, [this](const QRect &monitor) { return space.margins(monitor); }};
    int calls = 0;
};

} // namespace

TEST(QtScreens, describesTheDisplay) {
    const QtScreens screens;
    const auto all = screens.all();
    ASSERT_EQ(all.size(), 1U);
    EXPECT_EQ(all[0].frame, QRectF(0, 0, 1280, 800));
    EXPECT_EQ(all[0].visibleFrame, all[0].frame);
    EXPECT_EQ(all[0].deviceFrame, QRect(0, 0, 1280, 800));
    EXPECT_EQ(all[0].scale, 1);
    EXPECT_EQ(all[0].persistentID, u"screen"_s);
    EXPECT_NE(all[0].displayID.value_or(0), 0U);
    EXPECT_EQ(screens.main(), all[0]);
}

TEST(QtScreens, tellsOfANewSize) {
    QtScreens screens;
    int calls = 0;
    screens.setChangeHandler([&] { ++calls; });
    xrandr({u"--newmode"_s, u"small"_s, u"0"_s, u"1024"_s, u"0"_s, u"0"_s, u"1024"_s, u"768"_s,
            u"0"_s, u"0"_s, u"768"_s});
    xrandr({u"--addmode"_s, u"screen"_s, u"small"_s});
    ASSERT_FALSE(xrandr({u"--output"_s, u"screen"_s, u"--mode"_s, u"small"_s}).isNull());
    ASSERT_TRUE(waitUntil([&] {
        const auto main = screens.main();
        return calls > 0 && main && main->deviceFrame == QRect(0, 0, 1024, 768);
    }));
    EXPECT_EQ(screens.all()[0].frame, QRectF(0, 0, 1024, 768));
}

TEST(QtScreens, tellsOfDisplaysThatComeAndGo) {
    QtScreens screens;
    int calls = 0;
    screens.setChangeHandler([&] { ++calls; });
    setMonitor(u"left"_s, u"640/100x800/100+0+0"_s, u"screen"_s);
    setMonitor(u"right"_s, u"640/100x800/100+640+0"_s, u"none"_s);
    ASSERT_TRUE(waitUntil([&] { return screens.all().size() == 2 && calls > 0; }));
    const auto both = screens.all();
    EXPECT_NE(both[0].persistentID, both[1].persistentID);
    EXPECT_NE(both[0].displayID, both[1].displayID);
    const int callsBefore = calls;
    xrandr({u"--delmonitor"_s, u"right"_s});
    EXPECT_TRUE(waitUntil([&] { return screens.all().size() == 1 && calls > callsBefore; }));
}

TEST(QtScreens, tellsOnceOfEverythingThatChangesInOneTurn) {
    QtScreens screens;
    int calls = 0;
    screens.setChangeHandler([&] { ++calls; });
    auto *screen = QGuiApplication::primaryScreen();
    Q_EMIT screen->geometryChanged(screen->geometry());
    Q_EMIT screen->availableGeometryChanged(screen->geometry());
    Q_EMIT screen->logicalDotsPerInchChanged(96);
    EXPECT_EQ(calls, 0);
    ASSERT_TRUE(waitUntil([&] { return calls > 0; }));
    EXPECT_EQ(calls, 1);
}

TEST_F(QtScreensWithPanels, leavesOutAPanelOfALoneDisplay) {
    const xcb_window_t panel =
        showPanel({0, 0, 1280, 30}, {0, 0, 30, 0, 0, 0, 0, 0, 0, 1279, 0, 0});
    EXPECT_TRUE(waitForFrames({QRectF(0, 30, 1280, 770)}));
    ASSERT_TRUE(waitUntil([&] { return calls > 0; }));
    client.destroy(panel);
    EXPECT_TRUE(waitForFrames({QRectF(0, 0, 1280, 800)}));
}

TEST_F(QtScreensWithPanels, leavesOutThePanelsOfEachOfTwoDisplays) {
    splitTheScreen();
    const int callsBefore = calls;
    showPanel({0, 0, 640, 30}, {0, 0, 30, 0, 0, 0, 0, 0, 0, 639, 0, 0});
    EXPECT_TRUE(waitForFrames({QRectF(0, 30, 640, 770), QRectF(640, 0, 640, 800)}));
    EXPECT_TRUE(waitUntil([&] { return calls > callsBefore; }));
    const xcb_window_t other =
        showPanel({640, 760, 640, 40}, {0, 0, 0, 40, 0, 0, 0, 0, 0, 0, 640, 1279});
    EXPECT_TRUE(waitForFrames({QRectF(0, 30, 640, 770), QRectF(640, 0, 640, 760)}));
    client.destroy(other);
    EXPECT_TRUE(waitForFrames({QRectF(0, 30, 640, 770), QRectF(640, 0, 640, 800)}));
}

TEST_F(QtScreensWithPanels, keepsTheFrameUnderAPanelThatLeavesNoRoom) {
    splitTheScreen();
    showPanel({0, 0, 640, 790}, {0, 0, 790, 0, 0, 0, 0, 0, 0, 639, 0, 0});
    showPanel({640, 0, 640, 20}, {0, 0, 20, 0, 0, 0, 0, 0, 640, 1279, 0, 0});
    EXPECT_TRUE(waitForFrames({QRectF(0, 0, 640, 800), QRectF(640, 20, 640, 780)}));
}

TEST_F(QtScreensWithPanels, isNotToldOfWindowsThatLeaveTheVisibleFramesAsTheyAre) {
    splitTheScreen();
    showPanel({0, 0, 640, 30}, {0, 0, 30, 0, 0, 0, 0, 0, 0, 639, 0, 0});
    ASSERT_TRUE(waitForFrames({QRectF(0, 30, 640, 770), QRectF(640, 0, 640, 800)}));
    QCoreApplication::processEvents(); // what that change has left to tell
    const auto before = screens.all();
    int told = 0;
    screens.setChangeHandler([&] { told += screens.all() == before ? 1 : 0; });
    // Shallower than the one that is there.
    showPanel({0, 0, 640, 20}, {0, 0, 20, 0, 0, 0, 0, 0, 0, 639, 0, 0});
    showPanel({640, 0, 640, 25}, {0, 0, 25, 0, 0, 0, 0, 0, 640, 1279, 0, 0});
    EXPECT_TRUE(waitForFrames({QRectF(0, 30, 640, 770), QRectF(640, 25, 640, 775)}));
    EXPECT_EQ(told, 0);
}

TEST(QtScreens, tellsOfReservedMarginsWhenAVisibleFrameChanges) {
    QMargins reserved(0, 60, 0, 0);
    QtScreens screens(nullptr, [&](const QRect &) { return reserved; });
    EXPECT_EQ(screens.all()[0].visibleFrame, QRectF(0, 60, 1280, 740));
    int calls = 0;
    screens.setChangeHandler([&] { ++calls; });
    screens.noteReservedMargins();
    QCoreApplication::processEvents();
    EXPECT_EQ(calls, 0);
    reserved = QMargins(10, 0, 20, 30);
    screens.noteReservedMargins();
    ASSERT_TRUE(waitUntil([&] { return calls > 0; }));
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(screens.all()[0].visibleFrame, QRectF(10, 0, 1250, 770));
}

} // namespace zeph

int main(int argc, char **argv) {
    testing::InitGoogleTest(&argc, argv);
    if (GTEST_FLAG_GET(list_tests)) {
        return RUN_ALL_TESTS(); // the build asks for the names
    }
    zeph::XvfbSession session;
    if (!session.isRunning()) {
        return 1;
    }
    zeph::g_session = &session;
    qputenv("DISPLAY", session.display());
    qputenv("QT_QPA_PLATFORM", "xcb");
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
