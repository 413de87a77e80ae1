// SPDX-License-Identifier: MIT
#include "X11Fixture.h"

#include "platform/linux/x11/X11InputEvents.h"

#include <sys/resource.h>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace zeph {

class InputEventsTest : public X11Test {
protected:
    explicit InputEventsTest(const XvfbSession::Options &options = {}) : X11Test(options) {
        screens.screens = {wholeScreen()};
    }

    std::unique_ptr<InputEventTap> startTap() {
        auto tap = input.makeTap([this](const InputEvent &event) { events.push_back(event); });
        if (tap) {
            tap->enable();
            // The server has to have taken note before the test types.
            connection->intern("ZEPH_TEST");
        }
        return tap;
    }

    QByteArray xdotool(const QStringList &arguments) {
        return session.run(QStringList{u"xdotool"_s} + arguments);
    }

    std::ptrdiff_t count(InputEventKind kind) const {
        return std::count_if(events.begin(), events.end(),
                             [kind](const InputEvent &event) { return event.kind == kind; });
    }

    bool waitForCount(InputEventKind kind, std::ptrdiff_t expected) {
        return waitUntil([&] { return count(kind) >= expected; });
    }

    /// A window that takes the keys; the server passes on recorded ones when it has to talk.
    void openTypewriter() {
        const auto window = client->show({.geometry = {0, 0, 1280, 800}});
        ASSERT_NE(window, 0U);
        xdotool({u"mousemove"_s, u"100"_s, u"100"_s});
    }

    static QStringList relativeMoves(int times, const QString &dx, const QString &dy) {
        QStringList commands;
        for (int i = 0; i < times; ++i) {
            commands << u"mousemove_relative"_s << u"--"_s << dx << dy;
        }
        return commands;
    }

    FakeScreens screens;
    bool consent = true;
    X11InputEvents input{*connection, screens, [this] { return consent; }};
    std::vector<InputEvent> events;
};

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

TEST_F(InputEventsTest, givesPositionsInPoints) {
    screens.screens = {screen(QString(), 1, 640, 400, 0, 2)};
    xdotool({u"mousemove"_s, u"100"_s, u"60"_s});
    const auto tap = startTap();
    xdotool(relativeMoves(1, u"2"_s, u"0"_s));
    ASSERT_TRUE(waitForCount(InputEventKind::mouseMoved, 1));
    EXPECT_EQ(events.front().location, QPointF(51, 30));
}

TEST_F(InputEventsTest, aFloodOfMotionCostsLittle) {
    const auto tap = startTap();
    QStringList flood;
    for (int i = 0; i < 700; ++i) {
        flood += relativeMoves(1, i % 2 == 0 ? u"7"_s : u"-5"_s, u"0"_s);
        flood << u"sleep"_s << u"0.001"_s;
    }
    const auto processorSeconds = [] {
        rusage usage{};
        getrusage(RUSAGE_SELF, &usage);
        const auto seconds = [](const timeval &time) {
            return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
        };
        return seconds(usage.ru_utime) + seconds(usage.ru_stime);
    };
    QElapsedTimer elapsed;
    elapsed.start();
    const pid_t mover = session.start(QStringList{u"xdotool"_s} + flood);
    const double before = processorSeconds();
    while (elapsed.elapsed() < 1500) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        if (events.size() > 10) {
            break;
        }
    }
    const double used = processorSeconds() - before;
    const double share = used / (static_cast<double>(elapsed.elapsed()) / 1000);
    RecordProperty("processor_share", std::to_string(share));
    session.stop(mover);
    EXPECT_LT(share, 0.02);
    EXPECT_GT(events.size(), 3U);
}

TEST_F(InputEventsTest, makesNoTapWithoutConsent) {
    consent = false;
    EXPECT_FALSE(input.isTrusted());
    EXPECT_EQ(startTap(), nullptr);
}

TEST_F(InputEventsTest, fallsSilentWhenConsentIsWithdrawn) {
    openTypewriter();
    const auto tap = startTap();
    consent = false;
    xdotool({u"type"_s, u"abc"_s});
    xdotool({u"click"_s, u"1"_s});
    xdotool(relativeMoves(3, u"5"_s, u"5"_s));
    runLoopFor(std::chrono::milliseconds(100));
    EXPECT_TRUE(events.empty());
    consent = true;
    tap->enable();
    connection->intern("ZEPH_TEST");
    xdotool({u"click"_s, u"1"_s});
    EXPECT_TRUE(waitForCount(InputEventKind::leftMouseDown, 1));
    xdotool({u"key"_s, u"a"_s});
    EXPECT_TRUE(waitForCount(InputEventKind::keyDown, 1));
}

TEST_F(InputEventsTest, saysNothingBeforeItIsEnabledAndAfterItsEnd) {
    auto tap = input.makeTap([this](const InputEvent &event) { events.push_back(event); });
    ASSERT_TRUE(tap);
    xdotool({u"click"_s, u"1"_s});
    runLoopFor(std::chrono::milliseconds(50));
    tap->enable();
    tap.reset();
    xdotool({u"click"_s, u"1"_s, u"key"_s, u"a"_s});
    runLoopFor(std::chrono::milliseconds(50));
    EXPECT_TRUE(events.empty());
}

TEST_F(InputEventsTest, countsKeysWhereTheyCantBeRecorded) {
    // Recording takes a second connection, which is impossible when the display is not found.
    qputenv("DISPLAY", session.display());
    const auto single = X11Connection::open();
    qputenv("DISPLAY", ":999999");
    ASSERT_TRUE(single);
    X11InputEvents bare(*single, screens, [] { return true; });
    const auto tap = bare.makeTap([this](const InputEvent &event) { events.push_back(event); });
    ASSERT_TRUE(tap);
    tap->enable();
    single->intern("ZEPH_TEST");
    xdotool({u"type"_s, u"--delay"_s, u"1"_s, u"abcde"_s});
    EXPECT_TRUE(waitForCount(InputEventKind::keyDown, 5));
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
