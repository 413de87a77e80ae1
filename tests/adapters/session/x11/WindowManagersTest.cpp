// SPDX-License-Identifier: MIT
#include "X11Fixture.h"

#include "TinyWindowManager.h"
#include "adapters/session/x11/X11DesktopWindows.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const QPoint kSpot(900, 600);

/// A display with a small window manager of the test's own, which can be as odd as real ones are.
class WindowManagersTest : public X11Test {
protected:
    explicit WindowManagersTest(int frames = 1)
        : manager(std::make_unique<TinyWindowManager>(session.display(), frames)) {}

    bool waitForFramesAround(xcb_window_t window, int frames) {
        return waitUntil([&] {
            manager->work();
            return manager->framesAround(window) == frames && client->isViewable(window);
        });
    }

    /// Whether a click reaches `base` beneath the wallpaper.
    bool reaches(xcb_window_t base) {
        return waitUntil([&] {
            manager->work();
            click(kSpot);
            return client->takeClicks(base) > 0;
        });
    }

    std::unique_ptr<TinyWindowManager> manager;
};

class NestedFramesTest : public WindowManagersTest {
protected:
    NestedFramesTest() : WindowManagersTest(2) {}
};

} // namespace

TEST_F(WindowManagersTest, aFrameLetsClicksThrough) {
    const auto base =
        client->show({.geometry = kWholeScreen, .colour = 0x552200, .overridesRedirect = true});
    const auto surface = server->makeDesktopSurface(wholeScreen(), false);
    surface->orderFront();
    ASSERT_TRUE(waitForFramesAround(windowOf(*surface), 1));
    EXPECT_TRUE(reaches(base));
}

TEST_F(NestedFramesTest, framesWithinFramesLetClicksThrough) {
    const auto base =
        client->show({.geometry = kWholeScreen, .colour = 0x552200, .overridesRedirect = true});
    const auto surface = server->makeDesktopSurface(wholeScreen(), false);
    surface->orderFront();
    ASSERT_TRUE(waitForFramesAround(windowOf(*surface), 2));
    EXPECT_TRUE(reaches(base));
}

TEST_F(WindowManagersTest, isPaintedThoughItWasPutOnTheScreenWhileItWasToBeHidden) {
    const auto surface = server->makeDesktopSurface(wholeScreen(), false);
    fill(*surface, Qt::blue);
    surface->orderFront();
    surface->orderOut();
    connection->intern("ZEPH_TEST"); // the server did both with the answer, the manager nothing yet
    ASSERT_TRUE(waitForFramesAround(windowOf(*surface), 1));
    runLoopFor(std::chrono::milliseconds(50)); // in which its exposure is told
    surface->orderFront();
    EXPECT_TRUE(waitForPixel(kSpot, Qt::blue));
}

TEST_F(WindowManagersTest, liesBelowAllWindowsOnceTheManagerIsGone) {
    const auto normal = client->show(
        {.geometry = {100, 100, 200, 150}, .colour = 0xFF0000, .overridesRedirect = true});
    const auto surface = server->makeDesktopSurface(wholeScreen(), false);
    fill(*surface, Qt::blue);
    surface->orderFront();
    ASSERT_TRUE(waitForFramesAround(windowOf(*surface), 1));
    manager.reset();
    EXPECT_TRUE(waitUntil([&] { return client->stacking().value(0) == windowOf(*surface); }));
    EXPECT_TRUE(waitForPixel(client->geometry(normal).center(), Qt::red));
    EXPECT_TRUE(waitForPixel(kSpot, Qt::blue));
}

TEST_F(WindowManagersTest, liesOnTheDesktopsOfOthersOnceTheManagerIsGone) {
    const auto normal = client->show(
        {.geometry = {100, 100, 200, 150}, .colour = 0xFF0000, .overridesRedirect = true});
    const auto base = client->show({.geometry = kWholeScreen,
                                    .colour = 0x552200,
                                    .type = kDesktopType,
                                    .overridesRedirect = true});
    client->setIds(client->root(), "_NET_CLIENT_LIST_STACKING", XCB_ATOM_WINDOW, {base});
    const auto surface = server->makeDesktopSurface(wholeScreen(), false);
    fill(*surface, Qt::blue);
    surface->orderFront();
    ASSERT_TRUE(waitForFramesAround(windowOf(*surface), 1));
    client->raise(base);
    client->raise(normal);
    const X11DesktopWindows listed(*connection);
    ASSERT_TRUE(waitUntil([&] { return listed.all().size() == 1; }));
    connection->waitForReplies(); // those that the server asked for on hearing of the list
    manager.reset();
    const QList<xcb_window_t> wanted{base, windowOf(*surface), normal};
    EXPECT_TRUE(waitUntil([&] { return client->stacking() == wanted; }));
    EXPECT_TRUE(waitForPixel(kSpot, Qt::blue));
}

TEST_F(X11OpenboxTest, neverCallsForAttention) {
    const auto surface = showSurface(Qt::blue);
    const auto window = windowOf(*surface);
    const auto states = [&] { return client->atomNames(window, "_NET_WM_STATE"); };
    ASSERT_TRUE(waitUntil([&] { return states().contains("_NET_WM_STATE_BELOW"); }));
    for (int i = 0; i < 3; ++i) {
        session.run({u"wmctrl"_s, u"-i"_s, u"-r"_s, QString::number(window), u"-b"_s,
                     u"add,demands_attention"_s});
    }
    EXPECT_TRUE(waitUntil([&] { return !states().contains("_NET_WM_STATE_DEMANDS_ATTENTION"); }));
}

TEST_F(X11OpenboxTest, comesBackAboveADesktopThatIsRaisedInHaste) {
    const auto base =
        client->show({.geometry = kWholeScreen, .colour = 0x552200, .type = kDesktopType});
    const auto surface = showSurface(Qt::blue);
    const auto isAbove = [&] {
        const auto order = client->stacking();
        return order.indexOf(client->frameOf(windowOf(*surface))) >
               order.indexOf(client->frameOf(base));
    };
    for (int i = 0; i < 12; ++i) {
        client->raise(base);
        waitUntil([&] { return !isAbove(); }, std::chrono::milliseconds(100));
        waitUntil([&] { return isAbove(); }, std::chrono::milliseconds(100));
    }
    EXPECT_TRUE(waitUntil(isAbove));
}

} // namespace zeph
