// SPDX-License-Identifier: MIT
#include "adapters/apps/InstalledEntries.h"
#include "adapters/loop/QtRunLoop.h"
#include "adapters/session/sway/SwayInsets.h"
#include "adapters/session/sway/SwayWorkspace.h"
#include "adapters/session/sway/SwayWorkspaceList.h"
#include "adapters/session/wayland/ForeignToplevels.h"
#include "adapters/session/wayland/WaylandIdle.h"
#include "support/SwaySession.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace zeph {

/// Everything that sway tells, by sway itself.
class RealSwayTest : public testing::Test {
protected:
    RealSwayTest() {
        if (!session.isRunning()) {
            throw std::runtime_error("sway did not start");
        }
        activations = workspace.subscribeToActivations([this](const RunningApplication &front) {
            seen.append(front.bundleIdentifier.value_or(u"?"_s));
        });
    }

    pid_t openWindow(const QString &identifier) {
        return session.start({u"foot"_s, u"--app-id"_s, identifier, u"sleep"_s, u"60"_s});
    }

    bool waitForFront(const std::optional<QString> &identifier) {
        return waitUntil([&] {
            const auto front = workspace.frontmostApplication();
            return front.has_value() == identifier.has_value() &&
                   (!front || front->bundleIdentifier == identifier);
        });
    }

    QString shownOn(const QString &output) const {
        for (const SwayWorkspaceFacts &facts : list.all()) {
            if (facts.isVisible && facts.output == output) {
                return facts.name;
            }
        }
        return {};
    }

    SwaySession session{{.outputs = 2}};
    QtRunLoop runLoop;
    InstalledEntries installed;
    SwayIpc ipc{runLoop, QString::fromLocal8Bit(session.controlSocket())};
    SwayWorkspace workspace{ipc, installed.entries()};
    SwayWorkspaceList list{ipc};
    QStringList seen;
    Subscription activations;
};

TEST_F(RealSwayTest, theFrontApplicationIsThatOfTheFocusedWindow) {
    EXPECT_TRUE(waitForFront(std::nullopt));
    const pid_t editor = openWindow(u"org.example.Editor"_s);
    ASSERT_TRUE(waitForFront(u"org.example.Editor"_s));
    const pid_t other = openWindow(u"unheard.of"_s);
    ASSERT_TRUE(waitForFront(u"unheard.of"_s));
    ASSERT_TRUE(session.tell(u"workspace 7"_s));
    EXPECT_TRUE(waitForFront(std::nullopt)) << "the workspace is empty";
    ASSERT_TRUE(session.tell(u"workspace 1"_s));
    EXPECT_TRUE(waitForFront(u"unheard.of"_s));
    session.stop(other);
    EXPECT_TRUE(waitForFront(u"org.example.Editor"_s));
    session.stop(editor);
    EXPECT_TRUE(waitForFront(std::nullopt));
    EXPECT_EQ(seen, (QStringList{u"org.example.Editor"_s, u"unheard.of"_s, u"unheard.of"_s,
                                 u"org.example.Editor"_s}));
}

TEST_F(RealSwayTest, knowsTheWindowThatWasThereBeforeIt) {
    openWindow(u"org.example.Editor"_s);
    ASSERT_TRUE(waitForFront(u"org.example.Editor"_s));
    SwayIpc later(runLoop, QString::fromLocal8Bit(session.controlSocket()));
    const SwayWorkspace workspaceOfLater(later, installed.entries());
    EXPECT_TRUE(waitUntil([&] {
        const auto front = workspaceOfLater.frontmostApplication();
        return front && front->bundleIdentifier == u"org.example.Editor"_s;
    }));
}

TEST_F(RealSwayTest, eachOutputShowsAWorkspaceOfItsOwn) {
    ASSERT_TRUE(waitUntil([&] { return list.all().size() == 2; }));
    EXPECT_EQ(shownOn(u"HEADLESS-1"_s), u"1"_s);
    EXPECT_EQ(shownOn(u"HEADLESS-2"_s), u"2"_s);
    ASSERT_TRUE(session.tell(u"focus output HEADLESS-2; workspace mail"_s));
    EXPECT_TRUE(waitUntil([&] { return shownOn(u"HEADLESS-2"_s) == u"mail"_s; }));
    EXPECT_EQ(shownOn(u"HEADLESS-1"_s), u"1"_s);
    ASSERT_TRUE(session.tell(u"rename workspace to post"_s));
    EXPECT_TRUE(waitUntil([&] { return shownOn(u"HEADLESS-2"_s) == u"post"_s; }));
}

TEST_F(RealSwayTest, aWorkspaceKeepsItsIdForAsLongAsItLives) {
    openWindow(u"org.example.Editor"_s);
    ASSERT_TRUE(waitForFront(u"org.example.Editor"_s));
    ASSERT_TRUE(waitUntil([&] { return list.all().size() == 2; }));
    const quint64 id = list.all()[0].id;
    ASSERT_TRUE(session.tell(u"workspace 5"_s));
    ASSERT_TRUE(waitUntil([&] { return shownOn(u"HEADLESS-1"_s) == u"5"_s; }));
    ASSERT_TRUE(session.tell(u"workspace 1"_s));
    ASSERT_TRUE(waitUntil([&] { return shownOn(u"HEADLESS-1"_s) == u"1"_s; }));
    EXPECT_EQ(list.all()[0].id, id);
}

TEST_F(RealSwayTest, theUsableAreaIsThatOfTheOutputWithoutItsBar) {
    SwayInsets insets(ipc, list);
    ASSERT_TRUE(waitUntil([&] { return insets.usableArea(u"HEADLESS-1"_s, {}).has_value(); }));
    EXPECT_EQ(insets.usableArea(u"HEADLESS-1"_s, {}), QRectF(0, 0, 1280, 720));
    EXPECT_EQ(insets.usableArea(u"HEADLESS-2"_s, {}), QRectF(1280, 0, 1280, 720));
    EXPECT_TRUE(waitUntil([&] { return insets.laterLieBelow(); })) << "as its version does";
    ASSERT_TRUE(session.tell(u"gaps bottom all set 40"_s));
    ASSERT_TRUE(session.tell(u"workspace 1"_s));
    openWindow(u"org.example.Editor"_s); // what happens to a window leads to a look at the edges
    EXPECT_TRUE(waitUntil(
        [&] { return insets.usableArea(u"HEADLESS-1"_s, {}) == QRectF(0, 0, 1280, 680); }));
}

TEST_F(RealSwayTest, watchesForATimeWithoutInput) {
    const auto connection = WaylandConnection::open(session.waylandDisplay()).connection;
    ASSERT_TRUE(connection);
    WaylandIdle idle(*connection);
    const auto quiet = idle.watch(std::chrono::milliseconds(150));
    ASSERT_TRUE(quiet);
    for (int round = 0; round < 2; ++round) {
        EXPECT_TRUE(waitUntil([&] { return quiet->isQuiet(); })) << round;
        ASSERT_TRUE(session.tell(u"seat - cursor move 5 5"_s));
        EXPECT_TRUE(waitUntil([&] { return !quiet->isQuiet(); })) << round;
    }
}

TEST_F(RealSwayTest, tellsOfTheActiveWindowByItsProtocolToo) {
    const auto connection = WaylandConnection::open(session.waylandDisplay()).connection;
    ASSERT_TRUE(connection);
    const auto toplevels = ForeignToplevels::create(*connection, installed.entries());
    ASSERT_TRUE(toplevels);
    const auto waitFor = [&](const std::optional<QString> &identifier) {
        return waitUntil([&] {
            const auto front = toplevels->frontmostApplication();
            return (front ? front->bundleIdentifier : std::nullopt) == identifier;
        });
    };
    const pid_t editor = openWindow(u"org.example.Editor"_s);
    EXPECT_TRUE(waitFor(u"org.example.Editor"_s));
    const pid_t other = openWindow(u"unheard.of"_s);
    EXPECT_TRUE(waitFor(u"unheard.of"_s));
    session.stop(other);
    EXPECT_TRUE(waitFor(u"org.example.Editor"_s));
    session.stop(editor);
    EXPECT_TRUE(waitFor(std::nullopt));
}

TEST_F(RealSwayTest, theEndOfSwayIsSurvived) {
    ASSERT_TRUE(waitUntil([&] { return list.all().size() == 2; }));
    session.killCompositor();
    EXPECT_TRUE(waitUntil([&] { return !ipc.isConnected(); }));
    EXPECT_EQ(list.all().size(), 2U);
}

} // namespace zeph
