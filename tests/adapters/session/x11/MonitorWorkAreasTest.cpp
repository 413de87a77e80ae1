// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11MonitorWorkAreas.h"

#include "X11Fixture.h"

namespace zeph {

namespace {

const QRect kWithPanel(0, 32, 1280, 768);
const QRect kRightOfIt(1280, 0, 1024, 768);
const QRect kRightMonitor(1280, 0, 1024, 800);

/// A window manager played on the root window, with what GNOME's was seen to write there.
class MonitorWorkAreasTest : public X11Test {
protected:
    void support(const QList<QByteArray> &hints) const {
        QList<std::uint32_t> atoms;
        for (const QByteArray &hint : hints) {
            atoms << connection->intern(hint);
        }
        setRoot("_NET_SUPPORTED", XCB_ATOM_ATOM, atoms);
    }
    void tell(int workspace, const QList<std::uint32_t> &numbers) const {
        setRoot("_GTK_WORKAREAS_D" + QByteArray::number(workspace), XCB_ATOM_CARDINAL, numbers);
    }
    void goTo(std::uint32_t workspace) const {
        setRoot("_NET_CURRENT_DESKTOP", XCB_ATOM_CARDINAL, {workspace});
    }
    void playGnome() const {
        support({"_NET_WORKAREA", "_GTK_WORKAREAS"});
        tell(0, {0, 32, 1280, 768, 1280, 0, 1024, 768});
    }

private:
    void setRoot(const QByteArray &name, xcb_atom_t type,
                 const QList<std::uint32_t> &values) const {
        xcb_change_property(connection->xcb(), XCB_PROP_MODE_REPLACE, connection->root(),
                            connection->intern(name), type, 32,
                            static_cast<std::uint32_t>(values.size()), values.constData());
        xcb_flush(connection->xcb());
    }
};

/// The same, followed.
class FollowedWorkAreasTest : public MonitorWorkAreasTest {
protected:
    FollowedWorkAreasTest() {
        areas.setChangeHandler([this] { ++calls; });
    }
    bool waitForArea(const std::optional<QRect> &area) {
        return waitUntil([&] { return areas.on(kWholeScreen) == area; });
    }

    X11MonitorWorkAreas areas{*connection};
    int calls = 0;
};

} // namespace

TEST_F(MonitorWorkAreasTest, areThoseOfEachMonitor) {
    playGnome();
    const X11MonitorWorkAreas areas(*connection);
    connection->waitForReplies();
    EXPECT_EQ(areas.on(kWholeScreen), kWithPanel);
    EXPECT_EQ(areas.on(kRightMonitor), kRightOfIt);
}

TEST_F(MonitorWorkAreasTest, areThoseOfTheCurrentWorkspace) {
    playGnome();
    tell(1, {0, 64, 1280, 736});
    goTo(1);
    const X11MonitorWorkAreas areas(*connection);
    connection->waitForReplies();
    EXPECT_EQ(areas.on(kWholeScreen), QRect(0, 64, 1280, 736));
}

TEST_F(MonitorWorkAreasTest, areNotThoseThatAnEarlierManagerLeft) {
    playGnome();
    support({"_NET_WORKAREA"});
    const X11MonitorWorkAreas areas(*connection);
    connection->waitForReplies();
    EXPECT_EQ(areas.on(kWholeScreen), std::nullopt);
}

TEST_F(MonitorWorkAreasTest, aWildNumberOfAWorkspaceCountsAsTheFirst) {
    playGnome();
    goTo(0xFFFFFFFF);
    const X11MonitorWorkAreas areas(*connection);
    connection->waitForReplies();
    EXPECT_EQ(areas.on(kWholeScreen), kWithPanel);
}

TEST_F(FollowedWorkAreasTest, followAManagerThatComesAndGoes) {
    playGnome();
    EXPECT_TRUE(waitForArea(kWithPanel));
    support({"_NET_WORKAREA"});
    EXPECT_TRUE(waitForArea(std::nullopt));
    EXPECT_EQ(calls, 2);
}

TEST_F(FollowedWorkAreasTest, followAPanelAndTheWorkspaces) {
    playGnome();
    ASSERT_TRUE(waitForArea(kWithPanel));
    tell(0, {0, 48, 1280, 752});
    EXPECT_TRUE(waitForArea(QRect(0, 48, 1280, 752)));
    tell(1, {0, 64, 1280, 736});
    goTo(1);
    EXPECT_TRUE(waitForArea(QRect(0, 64, 1280, 736)));
    tell(1, {0, 80, 1280, 720});
    EXPECT_TRUE(waitForArea(QRect(0, 80, 1280, 720)));
    goTo(0);
    EXPECT_TRUE(waitForArea(QRect(0, 48, 1280, 752)));
}

TEST_F(FollowedWorkAreasTest, tellOfChangesAlone) {
    playGnome();
    ASSERT_TRUE(waitForArea(kWithPanel));
    const int before = calls;
    tell(0, {0, 32, 1280, 768, 1280, 0, 1024, 768});
    tell(1, {0, 32, 1280, 768, 1280, 0, 1024, 768});
    goTo(1);
    tell(1, {0, 64, 1280, 736});
    EXPECT_TRUE(waitForArea(QRect(0, 64, 1280, 736)));
    EXPECT_EQ(calls, before + 1);
}

} // namespace zeph
