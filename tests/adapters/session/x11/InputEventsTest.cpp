// SPDX-License-Identifier: MIT
#include "InputEventsFixture.h"

#include "adapters/session/x11/X11IdleAlarm.h"

#include "sensing/InputMonitor.h"

#include <sys/resource.h>
#include <xcb/xinput.h>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// The input that the server tells to this connection, of all devices.
std::uint32_t selectedEvents(const X11Connection &connection) {
    const X11Reply<xcb_input_xi_get_selected_events_reply_t> reply(
        xcb_input_xi_get_selected_events_reply(
            connection.xcb(), xcb_input_xi_get_selected_events(connection.xcb(), connection.root()),
            nullptr));
    std::uint32_t selected = 0;
    if (reply) {
        auto masks = xcb_input_xi_get_selected_events_masks_iterator(reply.get());
        for (; masks.rem > 0; xcb_input_event_mask_next(&masks)) {
            selected |= *xcb_input_event_mask_mask(masks.data);
        }
    }
    return selected;
}

} // namespace

TEST_F(InputEventsTest, idleTimeGrowsAndStartsAnewWithAKey) {
    xdotool({u"key"_s, u"a"_s});
    ASSERT_TRUE(waitUntil([&] { return input.secondsSinceLastEvent() > 1.0; }));
    xdotool({u"key"_s, u"a"_s});
    EXPECT_TRUE(waitUntil([&] { return input.secondsSinceLastEvent() < 1.0; }));
}

TEST_F(InputEventsTest, quietLastsUntilTheNextKey) {
    constexpr double seconds = 2;
    xdotool({u"key"_s, u"a"_s});
    ASSERT_TRUE(waitUntil([&] { return input.isQuietForMoreThan(seconds); }));
    EXPECT_GT(input.secondsSinceLastEvent(), seconds);
    xdotool({u"key"_s, u"a"_s});
    EXPECT_TRUE(waitUntil([&] { return !input.isQuietForMoreThan(seconds); }));
}

TEST_F(InputEventsTest, aServerTellsOfQuietByItself) {
    using namespace std::chrono_literals;
    xdotool({u"key"_s, u"a"_s});
    const auto alarm = X11IdleAlarm::create(*connection, 300ms);
    ASSERT_TRUE(alarm);
    for (int i = 0; i < 2; ++i) {
        ASSERT_TRUE(waitUntil([&] { return alarm->isQuiet(); }));
        EXPECT_GT(input.secondsSinceLastEvent(), 0.3);
        xdotool({u"key"_s, u"a"_s});
        ASSERT_TRUE(waitUntil([&] { return !alarm->isQuiet(); }));
    }
}

TEST_F(InputEventsTest, quietThatBeganBeforeTheAlarmCounts) {
    using namespace std::chrono_literals;
    ASSERT_TRUE(waitUntil([&] { return input.secondsSinceLastEvent() > 0.2; }));
    EXPECT_TRUE(X11IdleAlarm::create(*connection, 200ms)->isQuiet());
    EXPECT_FALSE(X11IdleAlarm::create(*connection, 1h)->isQuiet());
    EXPECT_TRUE(input.isQuietForMoreThan(0.2));
    EXPECT_FALSE(input.isQuietForMoreThan(3600)) << "another time is another question";
}

TEST_F(InputEventsTest, askingForQuietAsksTheServerNothing) {
    const auto sequence = [&] { return xcb_no_operation(connection->xcb()).sequence; };
    const unsigned atFirst = sequence();
    input.isQuietForMoreThan(30);
    const unsigned before = sequence();
    EXPECT_GT(before, atFirst + 4) << "the alarms were set";
    for (int i = 0; i < 100; ++i) {
        input.isQuietForMoreThan(30);
    }
    EXPECT_EQ(sequence(), before + 1);
}

TEST_F(InputEventsTest, countsEveryTypedKey) {
    openTypewriter();
    const auto tap = startTap();
    ASSERT_TRUE(tap);
    xdotool({u"type"_s, u"--delay"_s, u"1"_s, u"abcdefghij"_s});
    EXPECT_TRUE(waitForCount(InputEventKind::keyDown, 10));
    xdotool({u"click"_s, u"1"_s});
    EXPECT_TRUE(waitForCount(InputEventKind::leftMouseDown, 1));
    EXPECT_EQ(count(InputEventKind::keyDown), 10);
}

TEST_F(InputEventsTest, countsTheRepeatsOfAHeldKey) {
    openTypewriter();
    const auto tap = startTap();
    xdotool({u"keydown"_s, u"a"_s});
    EXPECT_TRUE(waitForCount(InputEventKind::keyDown, 5));
    xdotool({u"keyup"_s, u"a"_s});
}

TEST_F(InputEventsTest, countsLeftAndRightButtonsAndNoWheel) {
    const auto tap = startTap();
    for (const auto *button : {"4", "5", "2", "6", "7", "3", "1"}) {
        xdotool({u"click"_s, QString::fromLatin1(button)});
    }
    EXPECT_TRUE(waitForCount(InputEventKind::leftMouseDown, 1));
    EXPECT_EQ(count(InputEventKind::rightMouseDown), 1);
    EXPECT_EQ(events.size(), 2U);
}

TEST_F(InputEventsTest, followsThePointerInFewStepsAndLosesNoTravel) {
    xdotool({u"mousemove"_s, u"10"_s, u"20"_s});
    const auto tap = startTap();
    xdotool(relativeMoves(1, u"1"_s, u"0"_s));
    ASSERT_TRUE(waitForCount(InputEventKind::mouseMoved, 1));
    EXPECT_EQ(events.front().location, QPointF(11, 20));
    QElapsedTimer elapsed;
    elapsed.start();
    xdotool(relativeMoves(200, u"3"_s, u"2"_s));
    ASSERT_TRUE(waitUntil([&] { return events.back().location == QPointF(611, 420); }));
    double travel = 0;
    for (std::size_t i = 1; i < events.size(); ++i) {
        const QPointF step = events[i].location - events[i - 1].location;
        travel += std::hypot(step.x(), step.y());
    }
    EXPECT_NEAR(travel, std::hypot(600, 400), 1);
    EXPECT_LE(static_cast<qint64>(events.size()), elapsed.elapsed() / 50 + 4);
}

TEST_F(InputEventsTest, isSilentWhileThePointerRestsAndHearsTheNextMove) {
    const auto tap = startTap();
    for (int i = 0; i < 5; ++i) {
        const auto before = events.size();
        xdotool(relativeMoves(1, u"5"_s, u"0"_s));
        ASSERT_TRUE(waitUntil([&] { return events.size() == before + 1; }));
        runLoopFor(std::chrono::milliseconds(120)); // the pause in which it falls asleep
        EXPECT_EQ(events.size(), before + 1);
    }
}

TEST_F(InputEventsTest, tellsDraggingFromMoving) {
    const auto tap = startTap();
    xdotool(QStringList{u"mousedown"_s, u"1"_s} + relativeMoves(1, u"5"_s, u"0"_s));
    EXPECT_TRUE(waitForCount(InputEventKind::leftMouseDragged, 1));
    xdotool({u"mouseup"_s, u"1"_s});
    xdotool(QStringList{u"mousedown"_s, u"3"_s} + relativeMoves(1, u"5"_s, u"0"_s));
    EXPECT_TRUE(waitForCount(InputEventKind::rightMouseDragged, 1));
    xdotool({u"mouseup"_s, u"3"_s});
}

namespace {

/// Whether the server tells motion to this connection. It does not while the tap reads positions,
/// and does again once the pointer rests and all its way is read.
bool hearsMotion(const X11Connection &connection) {
    return (selectedEvents(connection) & XCB_INPUT_XI_EVENT_MASK_RAW_MOTION) != 0;
}

} // namespace

class OtherButtonTest : public InputEventsTest, public testing::WithParamInterface<const char *> {};

TEST_P(OtherButtonTest, addsNoTravelWhileItAloneIsHeld) {
    const QString button = QString::fromLatin1(GetParam());
    const auto tap = startTap();
    xdotool({u"mousedown"_s, button});
    xdotool(relativeMoves(1, u"50"_s, u"0"_s));
    ASSERT_TRUE(waitUntil([&] { return !hearsMotion(*connection); }));
    ASSERT_TRUE(waitUntil([&] { return hearsMotion(*connection); }));
    EXPECT_TRUE(events.empty());
    xdotool(QStringList{u"mousedown"_s, u"1"_s} + relativeMoves(1, u"5"_s, u"0"_s));
    EXPECT_TRUE(waitForCount(InputEventKind::leftMouseDragged, 1));
    xdotool({u"mouseup"_s, u"1"_s, u"mouseup"_s, button});
    xdotool(relativeMoves(1, u"5"_s, u"0"_s));
    EXPECT_TRUE(waitForCount(InputEventKind::mouseMoved, 1));
}

INSTANTIATE_TEST_SUITE_P(MiddleAndThumb, OtherButtonTest, testing::Values("2", "8"));

TEST_F(InputEventsTest, givesPositionsInPoints) {
    screens.screens = {screen(QString(), 1, 640, 400, 0, 2)};
    xdotool({u"mousemove"_s, u"100"_s, u"60"_s});
    const auto tap = startTap();
    xdotool(relativeMoves(1, u"2"_s, u"0"_s));
    ASSERT_TRUE(waitForCount(InputEventKind::mouseMoved, 1));
    EXPECT_EQ(events.front().location, QPointF(51, 30));
}

namespace {

double processorSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval &time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

} // namespace

TEST_F(InputEventsTest, aFloodOfMotionCostsLittle) {
    constexpr double enough = 0.02;
    const auto tap = startTap();
    QStringList flood{u"mousemove"_s, u"100"_s, u"100"_s};
    for (int i = 0; i < 700; ++i) {
        flood += relativeMoves(1, i % 2 == 0 ? u"7"_s : u"-5"_s, u"0"_s);
        flood << u"sleep"_s << u"0.001"_s;
    }
    // The least of several tries: what else the machine does makes every step dearer.
    double leastShare = std::numeric_limits<double>::max();
    for (int attempt = 0; attempt < 5 && leastShare >= enough; ++attempt) {
        events.clear();
        QElapsedTimer elapsed;
        elapsed.start();
        const pid_t mover = session.start(QStringList{u"xdotool"_s} + flood);
        const double before = processorSeconds();
        while (elapsed.elapsed() < 1500 && events.size() <= 10) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        const double used = processorSeconds() - before;
        leastShare = std::min(leastShare, used / (static_cast<double>(elapsed.elapsed()) / 1000));
        session.stop(mover);
        ASSERT_GT(events.size(), 3U);
    }
    RecordProperty("processor_share", std::to_string(leastShare));
    EXPECT_LT(leastShare, enough);
}

TEST_F(InputEventsTest, makesNoTapWithoutConsent) {
    consents.input.set(ConsentState::denied);
    EXPECT_FALSE(input.isTrusted());
    EXPECT_EQ(startTap(), nullptr);
}

TEST_F(InputEventsTest, asksTheServerForNothingFromTheMomentConsentIsWithdrawn) {
    const auto tap = startTap();
    EXPECT_NE(selectedEvents(*connection), 0U);
    consents.input.set(ConsentState::denied);
    EXPECT_EQ(selectedEvents(*connection), 0U);
    consents.input.set(ConsentState::granted);
    EXPECT_NE(selectedEvents(*connection), 0U);
}

TEST_F(InputEventsTest, fallsSilentWhenConsentIsWithdrawn) {
    openTypewriter();
    const auto tap = startTap();
    const InputWitness witness(session.display(), screens);
    consents.input.set(ConsentState::denied);
    xdotool({u"type"_s, u"abc"_s});
    xdotool({u"click"_s, u"1"_s});
    xdotool(relativeMoves(3, u"5"_s, u"5"_s));
    EXPECT_TRUE(witness.hears(InputEventKind::keyDown, 3));
    EXPECT_TRUE(witness.hears(InputEventKind::leftMouseDown, 1));
    EXPECT_TRUE(witness.hears(InputEventKind::mouseMoved, 1));
    settle();
    EXPECT_TRUE(events.empty());
}

TEST_F(InputEventsTest, hearsAgainAsSoonAsConsentIsBack) {
    openTypewriter();
    InputMonitor monitor(clock, input);
    monitor.start();
    connection->intern("ZEPH_TEST");
    xdotool({u"key"_s, u"a"_s});
    ASSERT_TRUE(waitUntil([&] { return monitor.totalKeystrokes() == 1; }));

    consents.input.set(ConsentState::denied);
    connection->intern("ZEPH_TEST");
    xdotool({u"key"_s, u"a"_s, u"click"_s, u"1"_s});
    consents.input.set(ConsentState::granted);
    connection->intern("ZEPH_TEST");
    xdotool({u"key"_s, u"a"_s, u"click"_s, u"1"_s});
    EXPECT_TRUE(waitUntil([&] { return monitor.mouseClicks() == 1; }));
    EXPECT_TRUE(waitUntil([&] { return monitor.totalKeystrokes() == 2; }));
    settle();
    EXPECT_EQ(monitor.totalKeystrokes(), 2);
    EXPECT_EQ(monitor.mouseClicks(), 1);
}

TEST_F(InputEventsTest, aTapThatIsOffStaysOffWhenConsentComes) {
    const auto tap = input.makeTap([this](const InputEvent &event) { events.push_back(event); });
    consents.input.set(ConsentState::denied);
    consents.input.set(ConsentState::granted);
    EXPECT_EQ(selectedEvents(*connection), 0U);
}

TEST_F(InputEventsTest, tellsWhenTheTrustChanges) {
    int calls = 0;
    const Subscription one = input.subscribeToTrust([&] { ++calls; });
    const Subscription other = input.subscribeToTrust([&] { ++calls; });
    consents.input.set(ConsentState::denied);
    EXPECT_EQ(calls, 2);
    EXPECT_FALSE(input.isTrusted());
}

TEST_F(InputEventsTest, saysNothingBeforeItIsEnabledAndAfterItsEnd) {
    openTypewriter();
    const InputWitness witness(session.display(), screens);
    auto tap = input.makeTap([this](const InputEvent &event) { events.push_back(event); });
    ASSERT_TRUE(tap);
    xdotool({u"click"_s, u"1"_s});
    EXPECT_TRUE(witness.hears(InputEventKind::leftMouseDown, 1));
    settle();
    EXPECT_TRUE(events.empty());
    tap->enable();
    tap.reset();
    xdotool({u"click"_s, u"1"_s, u"key"_s, u"a"_s});
    EXPECT_TRUE(witness.hears(InputEventKind::leftMouseDown, 2));
    EXPECT_TRUE(witness.hears(InputEventKind::keyDown, 1));
    settle();
    EXPECT_TRUE(events.empty());
}

TEST_F(InputEventsTest, countsKeysWhereTheyCantBeRecorded) {
    const auto single = openWithoutRecording();
    ASSERT_TRUE(single);
    X11InputEvents bare(*single, screens, consents.input);
    const auto tap = startTap(bare, *single, events);
    ASSERT_TRUE(tap);
    xdotool({u"type"_s, u"--delay"_s, u"1"_s, u"abcde"_s});
    EXPECT_TRUE(waitForCount(InputEventKind::keyDown, 5));
}

class NoAlarmInputTest : public InputEventsTest {
protected:
    NoAlarmInputTest() : InputEventsTest({.serverArguments = {u"-extension"_s, u"SYNC"_s}}) {}
};

TEST_F(NoAlarmInputTest, asksForTheIdleTimeWhereTheServerSetsNoAlarm) {
    constexpr double seconds = 1;
    xdotool({u"key"_s, u"a"_s});
    ASSERT_TRUE(waitUntil([&] { return input.isQuietForMoreThan(seconds); }));
    xdotool({u"key"_s, u"a"_s});
    EXPECT_TRUE(waitUntil([&] { return !input.isQuietForMoreThan(seconds); }));
}

class BareServerInputTest : public InputEventsTest {
protected:
    BareServerInputTest()
        : InputEventsTest({.serverArguments = {u"-extension"_s, u"MIT-SCREEN-SAVER"_s}}) {}
};

TEST_F(BareServerInputTest, knowsNoIdleTimeWithoutTheScreenSaverExtension) {
    EXPECT_FALSE(connection->extension(X11Extension::screensaver));
    runLoopFor(std::chrono::milliseconds(20));
    EXPECT_EQ(input.secondsSinceLastEvent(), 0);
}

} // namespace zeph
