// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11IconCover.h"

#include "X11Fixture.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// What a manager and Nemo tell of themselves, by another client, with a compositor that is there.
class IconCoverTest : public X11Test {
protected:
    IconCoverTest() {
        server->settle();
        session.start({u"picom"_s, u"--config"_s, u"/dev/null"_s, u"--backend"_s, u"xrender"_s});
    }

    void announce(const QByteArray &manager) {
        const auto check = client->show({.geometry = {0, 0, 1, 1}, .overridesRedirect = true});
        client->setText(check, "_NET_WM_NAME", manager);
        for (const auto window : {check, client->root()}) {
            client->setIds(window, "_NET_SUPPORTING_WM_CHECK", XCB_ATOM_WINDOW, {check});
        }
        client->setIds(client->root(), "_NET_SUPPORTED", XCB_ATOM_ATOM,
                       {client->atom("_NET_WM_WINDOW_TYPE_DESKTOP")});
    }
    xcb_window_t showNemo() {
        return client->show({.geometry = kWholeScreen,
                             .type = kDesktopType,
                             .instance = "nemo-desktop",
                             .name = "Nemo-desktop"});
    }
    /// Clients in the order of mapping, and the same in that of stacking.
    void list(const QList<std::uint32_t> &mapped, const QList<std::uint32_t> &stacked) {
        client->setIds(client->root(), "_NET_CLIENT_LIST", XCB_ATOM_WINDOW, mapped);
        client->setIds(client->root(), "_NET_CLIENT_LIST_STACKING", XCB_ATOM_WINDOW, stacked);
    }
    bool becomes(const X11IconCover::Facts &facts) {
        return waitUntil([&] { return server->iconCover().facts() == facts; });
    }
    bool isUnderDesktop() const {
        return server->drawingWay().mechanism == DrawingMechanism::underDesktopProgram;
    }
};

} // namespace

TEST_F(IconCoverTest, isThereWhereOursWereMappedLater) {
    announce("Mutter (Muffin)");
    const auto nemo = showNemo();
    list({nemo}, {nemo});
    ASSERT_TRUE(waitUntil([&] { return isUnderDesktop(); }));
    EXPECT_TRUE(becomes({.icons = {nemo}}));
    const auto surface = server->makeDesktopSurface(wholeScreen(), false);
    const auto ours = windowOf(*surface);
    list({nemo, ours}, {ours, nemo});
    EXPECT_TRUE(becomes({.icons = {nemo}, .areCovered = true})) << "whatever the stacking";
    list({ours, nemo}, {nemo, ours});
    EXPECT_TRUE(becomes({.icons = {nemo}}));
    list({ours}, {ours});
    EXPECT_TRUE(becomes({}));
}

TEST_F(IconCoverTest, isNoneWithManagersThatGoByTheStacking) {
    announce("Mutter");
    const auto nemo = showNemo();
    const auto surface = server->makeDesktopSurface(wholeScreen(), false);
    list({nemo, windowOf(*surface)}, {windowOf(*surface), nemo});
    ASSERT_TRUE(waitUntil([&] { return isUnderDesktop(); }));
    EXPECT_TRUE(becomes({.icons = {nemo}}));
    runLoopFor(std::chrono::milliseconds(50));
    EXPECT_FALSE(server->iconCover().facts().areCovered);
    announce("Mutter (Muffin)");
    EXPECT_TRUE(becomes({.icons = {nemo}, .areCovered = true}));
}

TEST_F(IconCoverTest, theWayStaysWhileNemoMakesItsWindowsAnew) {
    announce("Mutter (Muffin)");
    const auto nemo = showNemo();
    list({nemo}, {nemo});
    ASSERT_TRUE(waitUntil([&] { return isUnderDesktop(); }));
    int changes = 0;
    const Subscription told = server->subscribeToDrawingWay([&] { ++changes; });
    client->destroy(nemo);
    list({}, {});
    ASSERT_TRUE(becomes({}));
    runLoopFor(std::chrono::milliseconds(400));
    const auto anew = showNemo();
    list({anew}, {anew});
    ASSERT_TRUE(becomes({.icons = {anew}}));
    runLoopFor(std::chrono::milliseconds(1200));
    EXPECT_EQ(changes, 0);
    client->destroy(anew);
    list({}, {});
    EXPECT_TRUE(waitUntil([&] { return !isUnderDesktop(); })) << "it is gone for good";
}

} // namespace zeph
