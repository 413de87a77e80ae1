// SPDX-License-Identifier: MIT
#include "X11Fixture.h"

#include "adapters/session/x11/X11DesktopStacking.h"
#include "adapters/session/x11/X11DesktopWindows.h"
#include "adapters/session/x11/X11EventListener.h"
#include "adapters/session/x11/X11WindowManager.h"

namespace zeph {

namespace {

/// Counts what the server tells of windows that were moved or put in another order.
class ConfigureCount : private X11EventListener {
public:
    ConfigureCount(X11Connection &connection, const std::vector<xcb_window_t> &windows)
        : X11EventListener(connection) {
        const std::uint32_t mask = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        for (const xcb_window_t window : windows) {
            xcb_change_window_attributes(connection.xcb(), window, XCB_CW_EVENT_MASK, &mask);
        }
    }

    int value() const { return m_value; }

private:
    void handleEvent(std::uint8_t kind, const xcb_generic_event_t & /*event*/) override {
        m_value += kind == XCB_CONFIGURE_NOTIFY ? 1 : 0;
    }

    int m_value = 0;
};

class DesktopStackingTest : public X11Test {
protected:
    xcb_window_t showUnmanaged(int left) {
        return client->show({.geometry = {left, 0, 400, 400}, .overridesRedirect = true});
    }

    /// As after something happened to any window.
    void lookAgain() {
        windows.read();
        connection->waitForReplies();
    }

    /// Until the server has done what it was asked for, and told of it.
    void settle() {
        lookAgain();
        runLoopFor(std::chrono::milliseconds(20));
    }

    X11DesktopWindows windows{*connection};
    X11WindowManager manager{*connection};
    X11DesktopStacking stacking{*connection, windows, manager};
};

} // namespace

TEST_F(DesktopStackingTest, laysAWindowOnTheDesktopsOfOthersWithoutAManager) {
    const auto ours = showUnmanaged(0);
    const auto theirs = client->show({.geometry = {0, 0, 800, 400}, .type = kDesktopType});
    const auto normal = client->show({.geometry = {100, 100, 200, 150}, .colour = 0xFF0000});
    client->setIds(client->root(), "_NET_CLIENT_LIST_STACKING", XCB_ATOM_WINDOW, {theirs, normal});
    stacking.add(ours, DesktopPlace::aboveDesktops);
    settle();
    stacking.layDown(ours);
    settle();
    EXPECT_EQ(client->stacking(), (QList<xcb_window_t>{theirs, ours, normal}));
    stacking.add(ours, DesktopPlace::belowDesktops);
    stacking.layDown(ours);
    settle();
    EXPECT_EQ(client->stacking(), (QList<xcb_window_t>{ours, theirs, normal}));
}

TEST_F(DesktopStackingTest, comesBackAboveAnotherDesktopWithoutAManager) {
    const auto ours = client->show({.geometry = {0, 0, 400, 400}, .type = kDesktopType});
    const auto theirs = client->show({.geometry = {0, 0, 800, 400}, .type = kDesktopType});
    stacking.add(ours, DesktopPlace::aboveDesktops);
    client->setIds(client->root(), "_NET_CLIENT_LIST_STACKING", XCB_ATOM_WINDOW, {ours, theirs});
    settle();
    EXPECT_EQ(client->stacking(), (QList<xcb_window_t>{theirs, ours}));
}

TEST_F(DesktopStackingTest, windowsOfTwoDisplaysDoNotChangePlacesForEver) {
    const auto left = showUnmanaged(0);
    const auto normal = client->show({.geometry = {100, 100, 200, 150}, .colour = 0xFF0000});
    const auto right = showUnmanaged(400);
    stacking.add(left, DesktopPlace::beneathManaged);
    stacking.add(right, DesktopPlace::beneathManaged);
    settle();
    EXPECT_EQ(client->stacking().indexOf(normal), 2);
    const ConfigureCount count(*connection, {left, right});
    for (int i = 0; i < 5; ++i) {
        lookAgain();
    }
    settle();
    EXPECT_EQ(count.value(), 0);
    client->raise(left);
    settle();
    settle();
    EXPECT_EQ(client->stacking().indexOf(normal), 2);
    EXPECT_GT(count.value(), 0) << "what does change is told";
}

TEST_F(DesktopStackingTest, withoutAManagerOursLiesBetweenTheDesktopAndTheWindows) {
    const auto base = client->show({.geometry = kWholeScreen, .type = kDesktopType});
    const auto normal = client->show({.geometry = {100, 100, 200, 150}, .colour = 0xFF0000});
    const auto gone = client->show({.geometry = kWholeScreen, .type = kDesktopType});
    client->setIds(client->root(), "_NET_CLIENT_LIST_STACKING", XCB_ATOM_WINDOW,
                   {base, normal, gone});
    settle();
    ASSERT_EQ(windows.all().size(), 2U);
    client->destroy(gone);
    server->settle();
    const auto surface = server->makeDesktopSurface(wholeScreen(), false);
    surface->orderFront();
    ASSERT_TRUE(waitUntil([&] { return client->isViewable(windowOf(*surface)); }));
    EXPECT_EQ(client->stacking(), (QList<xcb_window_t>{base, windowOf(*surface), normal}));
}

} // namespace zeph
