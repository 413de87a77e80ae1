// SPDX-License-Identifier: MIT
#include "X11Fixture.h"

#include <gmock/gmock.h>

#include <algorithm>

using namespace Qt::StringLiterals;
using testing::Contains;
using testing::Not;

namespace zeph {

using DesktopSurfaceTest = X11OpenboxTest;

namespace {

const std::uint32_t kOnAllDesktops = 0xFFFFFFFF;
const QPoint kSpot(900, 600);

} // namespace

TEST_F(DesktopSurfaceTest, isADesktopWindowOnEveryDesktop) {
    const auto surface = showSurface(Qt::blue);
    const xcb_window_t window = client->find("Tavi");
    ASSERT_EQ(window, windowOf(*surface));
    EXPECT_EQ(client->atomNames(window, "_NET_WM_WINDOW_TYPE"), QByteArrayList{kDesktopType});
    EXPECT_EQ(client->numbers(window, "_NET_WM_DESKTOP"), QList{kOnAllDesktops});
    EXPECT_EQ(client->text(window, "WM_CLASS"), QByteArray("tavi\0com.tavi.Tavi\0", 19));
    EXPECT_EQ(client->text(window, "_NET_WM_NAME"), "Tavi");
    EXPECT_EQ(client->geometry(window), kWholeScreen);
    EXPECT_EQ(client->depth(window), 24);
}

TEST_F(DesktopSurfaceTest, staysOutOfTaskBarsAndPagers) {
    const auto surface = showSurface(Qt::blue);
    const auto states = client->atomNames(windowOf(*surface), "_NET_WM_STATE");
    EXPECT_THAT(states, Contains("_NET_WM_STATE_SKIP_TASKBAR"));
    EXPECT_THAT(states, Contains("_NET_WM_STATE_SKIP_PAGER"));
    EXPECT_THAT(states, Contains("_NET_WM_STATE_BELOW"));
}

TEST_F(DesktopSurfaceTest, keepsItsStateWhenHiddenAndShownInHaste) {
    const auto surface = showSurface(Qt::blue);
    const auto window = windowOf(*surface);
    for (int i = 0; i < 5; ++i) {
        surface->orderOut();
        surface->orderFront();
        ASSERT_TRUE(waitForPixel(kSpot, Qt::blue));
    }
    EXPECT_TRUE(waitUntil([&] {
        return client->atomNames(window, "_NET_WM_STATE").contains("_NET_WM_STATE_BELOW") &&
               client->numbers(window, "_NET_WM_DESKTOP") == QList{kOnAllDesktops};
    }));
}

TEST_F(DesktopSurfaceTest, hasNoDecorationsAndWantsNoInput) {
    const auto surface = showSurface(Qt::blue);
    const auto window = windowOf(*surface);
    const auto motif = client->numbers(window, "_MOTIF_WM_HINTS");
    ASSERT_EQ(motif.size(), 5);
    EXPECT_EQ(motif[0], 2U);
    EXPECT_EQ(motif[2], 0U);
    const auto hints = client->numbers(window, "WM_HINTS");
    ASSERT_GE(hints.size(), 2);
    EXPECT_EQ(hints[0] & 1U, 1U) << "the hint about input is not given";
    EXPECT_EQ(hints[1], 0U);
    EXPECT_EQ(client->geometry(client->frameOf(window)), kWholeScreen);
}

TEST_F(DesktopSurfaceTest, liesBelowWindowsThatWereThereAndThoseThatCome) {
    const auto earlier = client->show({.geometry = {100, 100, 200, 150}, .colour = 0xFF0000});
    const auto surface = showSurface(Qt::blue);
    const auto later = client->show({.geometry = {600, 300, 200, 150}, .colour = 0x00FF00});
    const auto order = client->stacking();
    const auto place = [&](xcb_window_t window) { return order.indexOf(client->frameOf(window)); };
    EXPECT_LT(place(windowOf(*surface)), place(earlier));
    EXPECT_LT(place(windowOf(*surface)), place(later));
    EXPECT_TRUE(waitForPixel(client->geometry(earlier).center(), Qt::red));
    EXPECT_TRUE(waitForPixel(client->geometry(later).center(), Qt::green));
}

TEST_F(DesktopSurfaceTest, isNeverFocused) {
    const auto normal = client->show({.geometry = {100, 100, 200, 150}, .colour = 0xFF0000});
    client->activate(normal);
    ASSERT_TRUE(waitUntil([&] { return client->focus() == normal; }));
    const auto surface = showSurface(Qt::blue);
    client->watchFocus(windowOf(*surface));
    for (int i = 0; i < 3; ++i) {
        session.run({u"xdotool"_s, u"key"_s, u"alt+Tab"_s});
        click(kSpot);
    }
    client->activate(normal);
    ASSERT_TRUE(waitUntil([&] { return client->focus() == normal; }));
    EXPECT_EQ(client->focusCount(windowOf(*surface)), 0);
}

TEST_F(DesktopSurfaceTest, letsClicksReachTheDesktopBeneath) {
    const auto base =
        client->show({.geometry = kWholeScreen, .colour = 0x552200, .type = kDesktopType});
    const auto surface = showSurface(Qt::blue);
    // The window manager has to hear of the shape that follows the notice of the mapping.
    ASSERT_TRUE(waitUntil([&] {
        click(kSpot);
        return client->takeClicks(base) == 1;
    }));
    click(kSpot);
    EXPECT_TRUE(waitUntil([&] { return client->takeClicks(base) == 1; }));
}

TEST_F(DesktopSurfaceTest, letsClicksThroughAfterItWasHiddenAndShown) {
    const auto base =
        client->show({.geometry = kWholeScreen, .colour = 0x552200, .type = kDesktopType});
    const auto surface = showSurface(Qt::blue);
    for (int i = 0; i < 5; ++i) {
        surface->orderOut();
        ASSERT_TRUE(waitUntil([&] { return !client->isViewable(windowOf(*surface)); }));
        surface->orderFront();
        ASSERT_TRUE(waitForPixel(kSpot, Qt::blue));
        // The window manager hears of the shape after the window is on the screen.
        ASSERT_TRUE(waitUntil([&] {
            click(kSpot);
            return client->takeClicks(base) == 1;
        }));
        click(kSpot);
        EXPECT_TRUE(waitUntil([&] { return client->takeClicks(base) == 1; }));
    }
}

TEST_F(DesktopSurfaceTest, letsClicksThroughAfterItGrew) {
    const auto base =
        client->show({.geometry = kWholeScreen, .colour = 0x552200, .type = kDesktopType});
    const auto surface = server->makeDesktopSurface(screen(QString(), 1, 640, 400), false);
    fill(*surface, Qt::blue);
    surface->orderFront();
    ASSERT_TRUE(waitForPixel({320, 200}, Qt::blue));
    surface->setScreen(wholeScreen());
    fill(*surface, Qt::blue);
    ASSERT_TRUE(waitForPixel(kSpot, Qt::blue));
    click(kSpot);
    EXPECT_TRUE(waitUntil([&] { return client->takeClicks(base) == 1; }, std::chrono::seconds(2)));
}

TEST_F(DesktopSurfaceTest, comesBackAboveADesktopThatIsRaised) {
    const auto base =
        client->show({.geometry = kWholeScreen, .colour = 0x552200, .type = kDesktopType});
    const auto surface = showSurface(Qt::blue);
    for (int i = 0; i < 3; ++i) {
        client->raise(base);
        EXPECT_TRUE(waitUntil([&] {
            const auto order = client->stacking();
            return order.indexOf(client->frameOf(windowOf(*surface))) >
                   order.indexOf(client->frameOf(base));
        }));
        EXPECT_TRUE(waitForPixel(kSpot, Qt::blue));
    }
}

TEST_F(DesktopSurfaceTest, doesNotFightWithASecondSurfaceOfOurs) {
    const auto left = server->makeDesktopSurface(screen(QString(), 1, 640, 800), false);
    const auto right = server->makeDesktopSurface(screen(QString(), 2, 640, 800, 640), false);
    fill(*left, Qt::blue);
    fill(*right, Qt::green);
    left->orderFront();
    right->orderFront();
    ASSERT_TRUE(waitForPixel({320, 400}, Qt::blue));
    ASSERT_TRUE(waitForPixel({960, 400}, Qt::green));
    const auto order = client->stacking();
    runLoopFor(std::chrono::milliseconds(100));
    EXPECT_EQ(client->stacking(), order);
    EXPECT_EQ(client->geometry(windowOf(*right)), QRect(640, 0, 640, 800));
}

TEST_F(DesktopSurfaceTest, leavesNothingBehind) {
    auto surface = showSurface(Qt::blue);
    surface.reset();
    EXPECT_TRUE(waitUntil([&] { return client->findAll("Tavi").isEmpty(); }));
}

} // namespace zeph
