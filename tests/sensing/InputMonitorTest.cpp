// SPDX-License-Identifier: MIT
#include "sensing/InputMonitor.h"

#include "support/FakeInputEvents.h"
#include "support/ManualClock.h"

#include <gtest/gtest.h>

namespace zeph {

namespace {

class InputMonitorTap : public testing::Test {
protected:
    void keys(int count) {
        for (int index = 0; index < count; ++index) {
            events.emitEvent(InputEventKind::keyDown);
        }
    }
    void move(double x, double y, InputEventKind kind = InputEventKind::mouseMoved) {
        events.emitEvent(kind, {x, y});
    }

    ManualClock clock;
    FakeInputEvents events;
    InputMonitor input{clock, events};
};

TEST_F(InputMonitorTap, startsWithNothingAndNoTap) {
    EXPECT_FALSE(input.hasTap());
    EXPECT_EQ(input.totalKeystrokes(), 0);
    EXPECT_EQ(input.mouseClicks(), 0);
    EXPECT_DOUBLE_EQ(input.mouseDistanceMeters(), 0);
    EXPECT_EQ(events.tapsMade, 0);
}

TEST_F(InputMonitorTap, startMakesTheTapAndEnablesIt) {
    input.start();
    EXPECT_TRUE(input.hasTap());
    EXPECT_EQ(events.enables, 1);
}

TEST_F(InputMonitorTap, startCalledTwiceMakesOneTap) {
    input.start();
    input.start();
    EXPECT_EQ(events.tapsMade, 1);
    EXPECT_EQ(events.enables, 1);
}

TEST_F(InputMonitorTap, printsOneLineForEachRefusedTap) {
    events.refuses = true;
    testing::internal::CaptureStdout();
    input.start();
    input.start();
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "[Zeph] event tap not created (Accessibility not granted yet)\n"
              "[Zeph] event tap not created (Accessibility not granted yet)\n");
    EXPECT_FALSE(input.hasTap());
}

TEST_F(InputMonitorTap, asksForNoTapWhereKeysCanNotBeCounted) {
    events.countsKeys = false;
    testing::internal::CaptureStdout();
    input.start();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "") << "no permission is missing";
    EXPECT_FALSE(input.hasTap());
    EXPECT_EQ(events.tapsMade, 0);
}

TEST_F(InputMonitorTap, printsNothingWhenTheTapIsMade) {
    testing::internal::CaptureStdout();
    input.start();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST_F(InputMonitorTap, startsOnceThePermissionIsGranted) {
    events.trusted = false;
    testing::internal::CaptureStdout();
    input.start();
    testing::internal::GetCapturedStdout();
    ASSERT_FALSE(input.hasTap());
    events.trusted = true;
    input.start();
    keys(1);
    EXPECT_TRUE(input.hasTap());
    EXPECT_EQ(input.totalKeystrokes(), 1);
}

TEST_F(InputMonitorTap, givesZeroForAnEmptyList) {
    EXPECT_DOUBLE_EQ(input.keystrokesPerMinute(60.0), 0);
}

TEST_F(InputMonitorTap, givesTwentyForTenKeystrokesInThirtySeconds) {
    input.start();
    keys(10);
    EXPECT_DOUBLE_EQ(input.keystrokesPerMinute(30.0), 20.0);
}

TEST_F(InputMonitorTap, keepsAKeystrokeAtExactlyTheCutOff) {
    input.start();
    keys(1);
    clock.advance(60.0);
    EXPECT_DOUBLE_EQ(input.keystrokesPerMinute(60.0), 1.0);
}

TEST_F(InputMonitorTap, dropsAKeystrokeJustBelowTheCutOff) {
    input.start();
    keys(1);
    clock.advance(60.0001);
    EXPECT_DOUBLE_EQ(input.keystrokesPerMinute(60.0), 0);
    EXPECT_EQ(input.recentKeystrokeCount(), 0U);
}

TEST_F(InputMonitorTap, countsTheKeystrokesOfTheLastMinuteOnly) {
    input.start();
    keys(5);
    clock.advance(45.0);
    keys(3);
    EXPECT_DOUBLE_EQ(input.keystrokesPerMinute(60.0), 8.0);
    clock.advance(30.0);
    EXPECT_DOUBLE_EQ(input.keystrokesPerMinute(60.0), 3.0);
    EXPECT_EQ(input.totalKeystrokes(), 8) << "the total forgets nothing";
}

TEST_F(InputMonitorTap, forgetsKeystrokesThatLieInTheFutureOnceTheClockWasSetBack) {
    input.start();
    keys(1225);
    EXPECT_DOUBLE_EQ(input.keystrokesPerMinute(60.0), 1225) << "pressed at this very moment";
    clock.advance(-3600);
    keys(3);
    EXPECT_DOUBLE_EQ(input.keystrokesPerMinute(60.0), 3);
    clock.advance(3600);
    EXPECT_DOUBLE_EQ(input.keystrokesPerMinute(60.0), 0) << "they don't return with the hour";
}

TEST_F(InputMonitorTap, countsTheRepeatsOfAHeldKey) {
    input.start();
    keys(30);
    EXPECT_EQ(input.totalKeystrokes(), 30);
}

TEST_F(InputMonitorTap, staysBoundedWhenNobodyAsksForTheRate) {
    input.start();
    keys(1'000'000);
    EXPECT_LE(input.recentKeystrokeCount(), 131'072U);
    EXPECT_GE(input.recentKeystrokeCount(), 65'536U) << "a thousand a second, for a minute";
    EXPECT_EQ(input.totalKeystrokes(), 1'000'000);
}

TEST_F(InputMonitorTap, forgetsTheOldestFirstWhenItMustForget) {
    input.start();
    keys(131'000);
    clock.advance(100.0);
    keys(1'000);
    EXPECT_DOUBLE_EQ(input.keystrokesPerMinute(60.0), 1'000.0);
}

TEST_F(InputMonitorTap, addsOneClickForEachButtonDown) {
    input.start();
    events.emitEvent(InputEventKind::leftMouseDown, {10, 10});
    EXPECT_EQ(input.mouseClicks(), 1);
    events.emitEvent(InputEventKind::rightMouseDown, {10, 10});
    EXPECT_EQ(input.mouseClicks(), 2);
}

TEST_F(InputMonitorTap, addsOnePointFourMetresForAWayOfFiveThousandPoints) {
    input.start();
    move(0, 0);
    EXPECT_DOUBLE_EQ(input.mouseDistanceMeters(), 0) << "the first one is the starting point";
    move(3000, 4000);
    EXPECT_DOUBLE_EQ(input.mouseDistanceMeters(), 5000 * 0.00028);
    EXPECT_NEAR(input.mouseDistanceMeters(), 1.4, 1e-12);
}

TEST_F(InputMonitorTap, countsADragAsTravelAndAClickAsNone) {
    input.start();
    move(0, 0);
    move(300, 400, InputEventKind::leftMouseDragged);
    EXPECT_NEAR(input.mouseDistanceMeters(), 0.14, 1e-12);
    events.emitEvent(InputEventKind::leftMouseDown, {9000, 9000});
    move(0, 0, InputEventKind::rightMouseDragged);
    EXPECT_NEAR(input.mouseDistanceMeters(), 0.28, 1e-12) << "the click moved no starting point";
}

TEST_F(InputMonitorTap, countsAJumpBetweenDisplaysAsTravel) {
    input.start();
    move(-1920, 0);
    move(1920, 0);
    EXPECT_DOUBLE_EQ(input.mouseDistanceMeters(), 3840 * 0.00028);
}

TEST_F(InputMonitorTap, enablesTheTapAgainAfterADisabledNotice) {
    input.start();
    events.emitEvent(InputEventKind::tapDisabledByTimeout);
    EXPECT_EQ(events.enables, 2);
    events.emitEvent(InputEventKind::tapDisabledByUserInput);
    EXPECT_EQ(events.enables, 3);
    EXPECT_EQ(input.totalKeystrokes(), 0);
}

TEST_F(InputMonitorTap, restoresTheTotalsButNoRecentKeystrokes) {
    input.restore(1200, 40, 7.5);
    EXPECT_DOUBLE_EQ(input.keystrokesPerMinute(60.0), 0);
    input.start();
    keys(1);
    events.emitEvent(InputEventKind::leftMouseDown);
    EXPECT_EQ(input.totalKeystrokes(), 1201);
    EXPECT_EQ(input.mouseClicks(), 41);
    EXPECT_DOUBLE_EQ(input.mouseDistanceMeters(), 7.5);
}

TEST_F(InputMonitorTap, goesOnCountingAcrossMidnight) {
    input.start();
    keys(5);
    clock.advance(24 * 3600.0);
    keys(1);
    EXPECT_EQ(input.totalKeystrokes(), 6);
}

TEST_F(InputMonitorTap, publishesARateOfZeroWithoutThePermission) {
    events.trusted = false;
    testing::internal::CaptureStdout();
    input.start();
    testing::internal::GetCapturedStdout();
    keys(5);
    EXPECT_DOUBLE_EQ(input.keystrokesPerMinute(60.0), 0);
    EXPECT_EQ(input.totalKeystrokes(), 0);
}

TEST(InputMonitorEnd, releasesTheTap) {
    ManualClock clock;
    FakeInputEvents events;
    {
        InputMonitor input(clock, events);
        input.start();
    }
    events.emitEvent(InputEventKind::keyDown); // a stale handler is what the sanitizer would see
    InputMonitor next(clock, events);
    next.start();
    EXPECT_EQ(events.tapsMade, 2);
}

} // namespace

} // namespace zeph
