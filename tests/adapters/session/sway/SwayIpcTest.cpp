// SPDX-License-Identifier: MIT
#include "FakeSway.h"

#include "adapters/session/sway/SwayIpc.h"
#include "support/ManualClock.h"
#include "support/ManualRunLoop.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr quint32 kWorkspaces = 1;
constexpr quint32 kSubscribe = 2;
constexpr quint32 kWindow = 3;
constexpr quint32 kBarState = 20;

} // namespace

class SwayIpcTest : public testing::Test {
protected:
    std::unique_ptr<SwayIpc> open() {
        auto ipc = std::make_unique<SwayIpc>(runLoop, sway.path());
        EXPECT_TRUE(waitUntil([&] { return sway.calls > 0; }));
        return ipc;
    }

    ManualClock clock;
    ManualRunLoop runLoop{clock};
    FakeSway sway;
};

TEST_F(SwayIpcTest, withoutAPathThereIsNoSway) {
    SwayIpc ipc(runLoop, {});
    EXPECT_FALSE(ipc.isConnected());
    bool isAnswered = false;
    ipc.ask(SwayRequest::tree, [&](const QByteArray &) { isAnswered = true; });
    EXPECT_FALSE(isAnswered);
}

TEST_F(SwayIpcTest, followsWindowsWorkspacesAndBars) {
    const auto ipc = open();
    ASSERT_TRUE(waitUntil([&] { return !sway.requests.empty(); }));
    EXPECT_EQ(sway.requests[0].kind, kSubscribe);
    EXPECT_EQ(sway.requests[0].payload,
              R"(["workspace","window","barconfig_update","bar_state_update"])");
}

TEST_F(SwayIpcTest, doesWithoutTheEventsOfBarsWhereTheyAreNotKnown) {
    sway.answers[kSubscribe] = R"({"success": false})";
    const auto ipc = open();
    ASSERT_TRUE(waitUntil([&] { return sway.count(kSubscribe) == 2; }));
    EXPECT_EQ(sway.requests[1].payload, R"(["workspace","window"])");
}

TEST_F(SwayIpcTest, answersInTheOrderOfTheQuestions) {
    const auto ipc = open();
    sway.answers[4] = "tree";
    sway.answers[kWorkspaces] = "workspaces";
    QByteArrayList answers;
    const auto keep = [&](const QByteArray &payload) { answers.append(payload); };
    ipc->ask(SwayRequest::tree, keep);
    ipc->ask(SwayRequest::workspaces, keep);
    ASSERT_TRUE(waitUntil([&] { return answers.size() == 2; }));
    EXPECT_EQ(answers, (QByteArrayList{"tree", "workspaces"}));
}

TEST_F(SwayIpcTest, handsOnEventsBetweenAnswers) {
    const auto ipc = open();
    QByteArrayList heard;
    const Subscription events = ipc->subscribeToEvents([&](SwayEvent kind, const QByteArray &text) {
        heard.append(QByteArray::number(static_cast<int>(kind)) + ' ' + text);
    });
    bool isAnswered = false;
    ASSERT_TRUE(waitUntil([&] { return sway.count(kSubscribe) == 1; }));
    sway.isMute = true;
    ipc->ask(SwayRequest::workspaces, [&](const QByteArray &) { isAnswered = true; });
    ASSERT_TRUE(waitUntil([&] { return sway.count(kWorkspaces) == 1; }));
    sway.sendEvent(kBarState, "{}");
    sway.send(kWorkspaces, "[]");
    ASSERT_TRUE(waitUntil([&] { return isAnswered; }));
    EXPECT_EQ(heard, QByteArrayList{"20 {}"});
}

TEST_F(SwayIpcTest, tellsWhatHappensToWindowsButForTheirTitles) {
    const auto ipc = open();
    QStringList heard;
    const Subscription windows =
        ipc->subscribeToWindows([&](const SwayWindowChange &event) { heard.append(event.change); });
    const Subscription events =
        ipc->subscribeToEvents([&](SwayEvent /*kind*/, const QByteArray &payload) {
            heard.append(QString::fromUtf8(payload));
        });
    ASSERT_TRUE(waitUntil([&] { return sway.count(kSubscribe) == 1; }));
    for (const QByteArray change : {"new", "title", "focus", "close"}) {
        sway.sendEvent(kWindow, R"({ "change": ")" + change + R"(", "container": {"id": 7} })");
    }
    sway.sendEvent(kWindow, R"({ "change": "focus" })");
    sway.sendEvent(kBarState, "{}");
    ASSERT_TRUE(waitUntil([&] { return heard.contains(u"{}"_s); }));
    EXPECT_EQ(heard, (QStringList{u"new"_s, u"focus"_s, u"close"_s, u"{}"_s}));
}

TEST_F(SwayIpcTest, tellsOfTheEndOfAConversation) {
    const auto ipc = open();
    int ends = 0;
    const Subscription end = ipc->subscribeToEnd([&] {
        ++ends;
        EXPECT_FALSE(ipc->isConnected());
    });
    sway.hangUp();
    ASSERT_TRUE(waitUntil([&] { return !ipc->isConnected(); }));
    EXPECT_EQ(ends, 1);
}

TEST_F(SwayIpcTest, callsAgainWhenSwayHangsUp) {
    const auto ipc = open();
    int starts = 0;
    const Subscription start = ipc->subscribeToStart([&] { ++starts; });
    bool isAnswered = false;
    sway.isMute = true;
    ipc->ask(SwayRequest::tree, [&](const QByteArray &) { isAnswered = true; });
    sway.hangUp();
    ASSERT_TRUE(waitUntil([&] { return !ipc->isConnected(); }));
    runLoop.advance(0.9);
    EXPECT_FALSE(ipc->isConnected());
    sway.isMute = false;
    runLoop.advance(0.2);
    ASSERT_TRUE(waitUntil([&] { return sway.calls == 2; }));
    EXPECT_TRUE(ipc->isConnected());
    EXPECT_EQ(starts, 1);
    EXPECT_FALSE(isAnswered) << "asked in the conversation before";
}

TEST_F(SwayIpcTest, givesUpWhenTheSocketIsGone) {
    const auto ipc = open();
    sway.die();
    ASSERT_TRUE(waitUntil([&] { return !ipc->isConnected(); }));
    sway.listen(); // too late
    runLoop.advance(3600);
    EXPECT_FALSE(ipc->isConnected());
}

TEST_F(SwayIpcTest, givesUpWhenNobodyAnswersThere) {
    const auto ipc = open();
    sway.die(true);
    ASSERT_TRUE(waitUntil([&] { return !ipc->isConnected(); }));
    runLoop.advance(3600);
    QFile::remove(sway.path());
    sway.listen();
    runLoop.advance(3600);
    EXPECT_FALSE(ipc->isConnected());
}

TEST_F(SwayIpcTest, reachesASwayThatComesBackInTime) {
    const auto ipc = open();
    sway.die(true);
    ASSERT_TRUE(waitUntil([&] { return !ipc->isConnected(); }));
    runLoop.advance(10);
    EXPECT_FALSE(ipc->isConnected());
    QFile::remove(sway.path());
    sway.listen();
    runLoop.advance(10);
    EXPECT_TRUE(ipc->isConnected());
}

TEST_F(SwayIpcTest, hangsUpOnGarbage) {
    const auto ipc = open();
    ASSERT_TRUE(waitUntil([&] { return sway.count(kSubscribe) == 1; }));
    sway.sendRaw("what is this about, now?");
    ASSERT_TRUE(waitUntil([&] { return !ipc->isConnected(); }));
}

TEST_F(SwayIpcTest, hangsUpOnAnAnswerThatNobodyAskedFor) {
    const auto ipc = open();
    ASSERT_TRUE(waitUntil([&] { return sway.count(kSubscribe) == 1; }));
    runLoop.drain();
    sway.send(7, "{}");
    ASSERT_TRUE(waitUntil([&] { return !ipc->isConnected(); }));
}

TEST_F(SwayIpcTest, aServerThatOnlyTalksNonsenseIsLeftAlone) {
    sway.answers[kSubscribe] = "{}";
    const auto ipc = open();
    sway.isMute = true;
    for (int i = 0; i < 20; ++i) {
        if (ipc->isConnected()) {
            const int calls = sway.calls;
            ASSERT_TRUE(waitUntil([&] { return sway.calls >= calls; }));
            sway.sendRaw("nonsense and more of it");
            ASSERT_TRUE(waitUntil([&] { return !ipc->isConnected(); }));
        }
        const int calls = sway.calls;
        runLoop.advance(200);
        if (ipc->isConnected()) {
            ASSERT_TRUE(waitUntil([&] { return sway.calls > calls; }));
        }
    }
    EXPECT_LE(sway.calls, 10);
    EXPECT_FALSE(ipc->isConnected());
}

TEST_F(SwayIpcTest, oneWhoseTreeIsTooLargeIsLeftAlone) {
    sway.answers[4] = QByteArray(SwayMessageReader::largestPayload + 1, ' ');
    const auto ipc = open();
    const auto ask = [&] { ipc->ask(SwayRequest::tree, [](const QByteArray &) {}); };
    const Subscription start = ipc->subscribeToStart(ask);
    ask();
    for (int i = 0; i < 20; ++i) {
        ASSERT_TRUE(waitUntil([&] { return !ipc->isConnected(); }));
        runLoop.advance(200);
    }
    EXPECT_GT(sway.calls, 2);
    EXPECT_LE(sway.calls, 10);
}

TEST_F(SwayIpcTest, aConversationThatLastedMakesUpForFailures) {
    const auto ipc = open();
    for (int i = 0; i < 20; ++i) {
        const int calls = sway.calls;
        runLoop.advance(400);
        sway.hangUp();
        ASSERT_TRUE(waitUntil([&] { return !ipc->isConnected(); }));
        runLoop.advance(1);
        ASSERT_TRUE(waitUntil([&] { return sway.calls == calls + 1; })) << i;
    }
}

} // namespace zeph
