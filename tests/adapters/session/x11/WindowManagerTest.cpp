// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11WindowManager.h"

#include "X11Fixture.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// What a window manager writes down, by another client.
class WindowManagerTest : public X11Test {
protected:
    xcb_window_t announce(const QList<std::uint32_t> &supported = {}) {
        const auto check = client->show({.geometry = {0, 0, 1, 1}, .overridesRedirect = true});
        client->setText(check, "_NET_WM_NAME", "Example");
        for (const auto window : {check, client->root()}) {
            client->setIds(window, "_NET_SUPPORTING_WM_CHECK", XCB_ATOM_WINDOW, {check});
        }
        client->setIds(client->root(), "_NET_SUPPORTED", XCB_ATOM_ATOM, supported);
        return check;
    }

    bool waitForName(const QString &name) {
        return waitUntil([&] { return manager->facts() && manager->facts()->name == name; });
    }
    bool waitForNone() {
        return waitUntil([&] { return !manager->facts(); });
    }

    std::unique_ptr<X11WindowManager> manager = std::make_unique<X11WindowManager>(*connection);
};

} // namespace

TEST_F(WindowManagerTest, isNoneWithoutOne) {
    connection->waitForReplies();
    EXPECT_FALSE(manager->facts());
}

TEST_F(WindowManagerTest, isWhatItSaysOfItself) {
    const auto check = announce(
        {client->atom("_NET_WM_WINDOW_TYPE_DESKTOP"), client->atom("_NET_RESTACK_WINDOW")});
    ASSERT_TRUE(waitForName(u"Example"_s));
    EXPECT_EQ(manager->facts()->window, check);
    EXPECT_TRUE(waitUntil([&] { return manager->facts()->knowsDesktopType; }));
    EXPECT_TRUE(manager->facts()->knowsRestacking);
}

TEST_F(WindowManagerTest, knowsNothingThatItDoesNotName) {
    announce({client->atom("_NET_WM_STATE")});
    ASSERT_TRUE(waitForName(u"Example"_s));
    EXPECT_FALSE(manager->facts()->knowsDesktopType);
    EXPECT_FALSE(manager->facts()->knowsRestacking);
}

TEST_F(WindowManagerTest, isKnownToOneWhoComesLater) {
    announce();
    ASSERT_TRUE(waitForName(u"Example"_s));
    const X11WindowManager later(*connection);
    connection->waitForReplies();
    EXPECT_EQ(later.facts(), manager->facts());
}

TEST_F(WindowManagerTest, isGoneWithItsWindowThoughItsNoteIsLeft) {
    const auto check = announce();
    ASSERT_TRUE(waitForName(u"Example"_s));
    int changes = 0;
    const Subscription counting = manager->subscribe([&] { ++changes; });
    client->destroy(check);
    EXPECT_TRUE(waitForNone());
    EXPECT_EQ(changes, 1);
    EXPECT_FALSE(client->numbers(client->root(), "_NET_SUPPORTING_WM_CHECK").isEmpty());
    const X11WindowManager later(*connection);
    connection->waitForReplies();
    EXPECT_FALSE(later.facts());
}

TEST_F(WindowManagerTest, isNoneHoweverSoonItGoes) {
    for (int round = 0; round < 10; ++round) {
        const auto check = announce();
        ASSERT_TRUE(
            waitUntil([&] { return manager->facts() && manager->facts()->window == check; }));
        connection->waitForReplies();
        const X11WindowManager later(*connection);
        connection->intern("ZEPH_TEST"); // with the answer the first replies are here
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        connection->intern("ZEPH_TEST"); // those on its window
        client->destroy(check);
        connection->intern("ZEPH_TEST"); // and the notice of its end
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        connection->waitForReplies();
        EXPECT_TRUE(waitUntil([&] { return !later.facts(); })) << round;
    }
}

TEST_F(WindowManagerTest, isNotOneWhoseWindowSaysNothing) {
    const auto window = client->show({.geometry = {0, 0, 1, 1}, .overridesRedirect = true});
    client->setIds(client->root(), "_NET_SUPPORTING_WM_CHECK", XCB_ATOM_WINDOW, {window});
    announce();
    ASSERT_TRUE(waitForName(u"Example"_s));
    client->setIds(client->root(), "_NET_SUPPORTING_WM_CHECK", XCB_ATOM_WINDOW, {window});
    EXPECT_TRUE(waitForNone());
}

TEST_F(WindowManagerTest, isFollowedFromOneToTheNext) {
    announce();
    ASSERT_TRUE(waitForName(u"Example"_s));
    const pid_t openbox = session.start({u"openbox"_s, u"--sm-disable"_s});
    ASSERT_TRUE(waitForName(u"Openbox"_s));
    EXPECT_TRUE(waitUntil([&] { return manager->facts()->knowsDesktopType; }));
    session.stop(openbox);
    EXPECT_TRUE(waitForNone());
}

} // namespace zeph
