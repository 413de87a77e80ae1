// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11ReservedSpace.h"

#include "X11Fixture.h"

namespace zeph {

namespace {

const char *const kDockType = "_NET_WM_WINDOW_TYPE_DOCK";
const QList<std::uint32_t> kThirtyAtTheTop{0, 0, 30, 0, 0, 0, 0, 0, 0, 1279, 0, 0};
const QList<std::uint32_t> kFiftyAtTheTop{0, 0, 50, 0, 0, 0, 0, 0, 0, 1279, 0, 0};

class ReservedSpaceTest : public X11OpenboxTest {
protected:
    xcb_window_t showDock() {
        return client->show({.geometry = {0, 0, 1280, 30}, .type = kDockType, .name = "Dock"});
    }
    bool waitForTop(const X11ReservedSpace &space, int top) {
        return waitUntil([&] { return space.margins(kWholeScreen) == QMargins(0, top, 0, 0); });
    }
};

} // namespace

TEST_F(ReservedSpaceTest, knowsAPanelThatIsThereAtTheStart) {
    const xcb_window_t dock = showDock();
    client->setNumbers(dock, "_NET_WM_STRUT_PARTIAL", kThirtyAtTheTop);
    ASSERT_TRUE(waitUntil(
        [&] { return client->numbers(client->root(), "_NET_CLIENT_LIST").contains(dock); }));
    const X11ReservedSpace space(*connection);
    EXPECT_EQ(space.margins(kWholeScreen), QMargins(0, 30, 0, 0));
}

TEST_F(ReservedSpaceTest, followsAPanelThatComesChangesAndGoes) {
    X11ReservedSpace space(*connection);
    int calls = 0;
    space.setChangeHandler([&] { ++calls; });
    EXPECT_EQ(space.margins(kWholeScreen), QMargins());
    const xcb_window_t dock = showDock();
    client->setNumbers(dock, "_NET_WM_STRUT", {0, 0, 30, 0});
    EXPECT_TRUE(waitForTop(space, 30));
    client->setNumbers(dock, "_NET_WM_STRUT_PARTIAL", kFiftyAtTheTop);
    EXPECT_TRUE(waitForTop(space, 50));
    client->destroy(dock);
    EXPECT_TRUE(waitForTop(space, 0));
    EXPECT_EQ(calls, 3);
}

TEST_F(ReservedSpaceTest, saysNothingOfWindowsThatReserveNothing) {
    X11ReservedSpace space(*connection);
    int calls = 0;
    space.setChangeHandler([&] { ++calls; });
    client->show({.geometry = {100, 100, 200, 200}, .name = "Plain"});
    const xcb_window_t dock = showDock();
    // Later than the windows above, so they have been read when this is known.
    client->setNumbers(dock, "_NET_WM_STRUT_PARTIAL", kThirtyAtTheTop);
    EXPECT_TRUE(waitForTop(space, 30));
    EXPECT_EQ(calls, 1);
}

/// A manager that only says that it is one, and a panel of another program in no list of windows.
class UnlistedDockTest : public X11Test {
protected:
    void announce(const QByteArray &name, bool tellsWorkArea = true) const {
        const auto check = client->show({.geometry = {0, 0, 1, 1}, .overridesRedirect = true});
        client->setText(check, "_NET_WM_NAME", name);
        client->setIds(client->root(), "_NET_SUPPORTED", XCB_ATOM_ATOM,
                       {client->atom(tellsWorkArea ? "_NET_WORKAREA" : "_NET_WM_NAME")});
        for (const auto window : {check, client->root()}) {
            client->setIds(window, "_NET_SUPPORTING_WM_CHECK", XCB_ATOM_WINDOW, {check});
        }
    }
    xcb_window_t showDock() {
        const auto dock = bar.show({.geometry = {0, 0, 1280, 30}, .type = kDockType});
        bar.setNumbers(dock, "_NET_WM_STRUT_PARTIAL", kThirtyAtTheTop);
        return dock;
    }
    bool waitForTop(const X11ReservedSpace &space, int top) {
        return waitUntil([&] { return space.margins(kWholeScreen) == QMargins(0, top, 0, 0); });
    }

    XTestClient bar{session.display()};
};

TEST_F(UnlistedDockTest, countsWhereTheManagerListsNoDocks) {
    announce("i3", false);
    const xcb_window_t dock = showDock();
    X11ReservedSpace space(*connection);
    EXPECT_EQ(space.margins(kWholeScreen), QMargins(0, 30, 0, 0));
    bar.destroy(dock);
    EXPECT_TRUE(waitForTop(space, 0));
    showDock();
    EXPECT_TRUE(waitForTop(space, 30));
    announce("Example");
    EXPECT_TRUE(waitForTop(space, 0));
}

TEST_F(UnlistedDockTest, isNoneWhereTheManagerListsThem) {
    announce("Example");
    showDock();
    const X11ReservedSpace space(*connection);
    EXPECT_EQ(space.margins(kWholeScreen), QMargins());
}

TEST_F(UnlistedDockTest, countsWithoutAManager) {
    const xcb_window_t dock = showDock();
    const X11ReservedSpace space(*connection);
    EXPECT_EQ(space.margins(kWholeScreen), QMargins(0, 30, 0, 0));
    bar.destroy(dock);
    EXPECT_TRUE(waitForTop(space, 0));
    showDock();
    EXPECT_TRUE(waitForTop(space, 30));
    announce("Example");
    EXPECT_TRUE(waitForTop(space, 0)) << "a manager lists those that it keeps room for";
}

TEST_F(UnlistedDockTest, noticesOfAllWindowsEndWithTheNeedForThem) {
    const auto isAskedFor = [&] {
        const X11Reply<xcb_get_window_attributes_reply_t> root(xcb_get_window_attributes_reply(
            connection->xcb(), xcb_get_window_attributes(connection->xcb(), connection->root()),
            nullptr));
        return root && (root->your_event_mask & XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY) != 0;
    };
    auto space = std::make_unique<X11ReservedSpace>(*connection);
    EXPECT_TRUE(isAskedFor());
    announce("Example");
    EXPECT_TRUE(waitUntil([&] { return !isAskedFor(); }));
    announce("i3", false);
    EXPECT_TRUE(waitUntil(isAskedFor));
    space.reset();
    EXPECT_FALSE(isAskedFor());
}

TEST_F(X11Test, aWorkAreaThatAManagerLeftReservesNothing) {
    client->setNumbers(client->root(), "_NET_WORKAREA", {0, 30, 1280, 770});
    const X11ReservedSpace space(*connection);
    EXPECT_EQ(space.margins(kWholeScreen), QMargins());
}

} // namespace zeph
