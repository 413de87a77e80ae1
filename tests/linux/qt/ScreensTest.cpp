// SPDX-License-Identifier: MIT
#include "platform/linux/qt/QtScreens.h"

#include "support/WaitUntil.h"
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
