// SPDX-License-Identifier: MIT
#include "SwayFixture.h"

#include "adapters/session/sway/SwayWorkspace.h"

#include <QStringList>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace zeph {

class SwayWorkspaceTest : public PlayedSwayTest {
protected:
    void open(const QByteArray &tree = "{}") {
        sway.answers[kTree] = tree;
        workspace.emplace(ipc, installed.entries());
        activations = workspace->subscribeToActivations([this](const RunningApplication &front) {
            seen.append(front.localizedName.value_or(u"?"_s));
        });
        settle();
    }

    void tellWindow(const QByteArray &change, const QByteArray &container) {
        sway.sendEvent(kWindowEvent,
                       R"({"change": ")" + change + R"(", "container": )" + container + "}");
        settle();
    }

    void goTo(const QByteArray &windows) {
        sway.sendEvent(kWorkspaceEvent, R"({"change": "focus", "current": {"nodes": [)" + windows +
                                            R"(], "floating_nodes": []}})");
        settle();
    }

    std::optional<QString> front() const {
        const auto application = workspace->frontmostApplication();
        return application ? application->bundleIdentifier : std::nullopt;
    }

    const QByteArray editor = R"({"id": 7, "app_id": "org.example.Editor", "type": "con"})";
    const QByteArray terminal =
        R"({"id": 8, "app_id": null, "window_properties": {"class": "XTermLike"}})";

    InstalledEntries installed;
    std::optional<SwayWorkspace> workspace;
    QStringList seen;
    Subscription activations;
};

TEST_F(SwayWorkspaceTest, knowsTheWindowThatHadTheFocusBeforeIt) {
    open(R"({"nodes": [{"type": "con", "id": 7, "pid": 1, "focused": true,
                        "app_id": "org.example.Editor"}]})");
    EXPECT_EQ(front(), u"org.example.Editor"_s);
}

TEST_F(SwayWorkspaceTest, anEventIsNewerThanTheTreeThatComesAfterIt) {
    sway.isMute = true;
    workspace.emplace(ipc, installed.entries());
    ASSERT_TRUE(waitUntil([&] { return sway.count(kTree) == 1; }));
    sway.sendEvent(kWindowEvent, R"({"change": "focus", "container": )" + terminal + "}");
    sway.send(2, R"({"success": true})");
    sway.send(kTree, R"({"nodes": [{"type": "con", "id": 7, "pid": 1, "focused": true,
                                    "app_id": "org.example.Editor"}]})");
    sway.isMute = false;
    settle();
    EXPECT_EQ(front(), u"term"_s);
}

TEST_F(SwayWorkspaceTest, tellsOfEachApplicationThatGetsTheFocus) {
    open();
    tellWindow("focus", editor);
    tellWindow("title", terminal);
    tellWindow("focus", terminal);
    tellWindow("focus", editor);
    EXPECT_EQ(seen, (QStringList{u"Editor"_s, u"Terminal"_s, u"Editor"_s}));
}

TEST_F(SwayWorkspaceTest, anUnknownApplicationIsCalledByItsId) {
    open();
    tellWindow("focus", R"({"id": 9, "app_id": "foot"})");
    EXPECT_EQ(workspace->frontmostApplication(),
              (RunningApplication{u"foot"_s, u"foot"_s, std::nullopt}));
}

TEST_F(SwayWorkspaceTest, theLastPartOfADottedIdMayNameTheEntry) {
    open();
    tellWindow("focus", R"({"id": 9, "app_id": "org.somewhere.Term"})");
    EXPECT_EQ(front(), u"term"_s);
}

TEST_F(SwayWorkspaceTest, noneIsInFrontOnAnEmptyWorkspace) {
    open();
    tellWindow("focus", editor);
    goTo("");
    EXPECT_EQ(workspace->frontmostApplication(), std::nullopt);
}

TEST_F(SwayWorkspaceTest, theOneBeforeStaysUntilTheWindowOfTheNextWorkspaceIsTold) {
    open();
    tellWindow("focus", editor);
    goTo("{}");
    EXPECT_EQ(front(), u"org.example.Editor"_s);
}

TEST_F(SwayWorkspaceTest, noneIsInFrontOnceTheWindowIsClosed) {
    open();
    tellWindow("focus", editor);
    tellWindow("close", terminal);
    EXPECT_EQ(front(), u"org.example.Editor"_s) << "another one was closed";
    tellWindow("close", editor);
    EXPECT_EQ(workspace->frontmostApplication(), std::nullopt);
}

TEST_F(SwayWorkspaceTest, aWindowOfOursIsNoApplicationInFront) {
    open();
    tellWindow("focus", editor);
    tellWindow("focus", R"({"id": 9, "app_id": "com.tavi.Tavi"})");
    EXPECT_EQ(workspace->frontmostApplication(), std::nullopt);
    tellWindow("focus", R"({"id": 9, "app_id": "org.example.Editor", "pid": )" +
                            QByteArray::number(getpid()) + "}");
    EXPECT_EQ(front(), u"org.example.Editor"_s) << "a sandbox may have such a process too";
    tellWindow("focus", R"({"id": 9, "window_properties": {"class": "com.tavi.Tavi"}})");
    EXPECT_EQ(workspace->frontmostApplication(), std::nullopt);
}

TEST_F(SwayWorkspaceTest, asksAnewAfterSwayHungUp) {
    open();
    tellWindow("focus", editor);
    sway.answers[kTree] = R"({"nodes": [{"type": "con", "id": 8, "pid": 1, "focused": true,
                                         "app_id": "term"}]})";
    sway.hangUp();
    ASSERT_TRUE(waitUntil([&] { return !ipc.isConnected(); }));
    runLoop.advance(1);
    ASSERT_TRUE(waitUntil([&] { return front() == u"term"_s; }));
}

TEST_F(SwayWorkspaceTest, noneIsInFrontOnceNobodyTellsOfIt) {
    open();
    tellWindow("focus", editor);
    sway.die();
    ASSERT_TRUE(waitUntil([&] { return !ipc.isConnected(); }));
    EXPECT_EQ(workspace->frontmostApplication(), std::nullopt);
}

TEST_F(SwayWorkspaceTest, whatMakesNoSenseChangesNothing) {
    open();
    tellWindow("focus", editor);
    tellWindow("focus", "7");
    sway.sendEvent(kWorkspaceEvent, "{");
    sway.sendEvent(99, "{}");
    settle();
    EXPECT_EQ(front(), u"org.example.Editor"_s);
}

} // namespace zeph
