// SPDX-License-Identifier: MIT
#include "adapters/calendar/EdsDaemonFixture.h"
#include "adapters/power/QuietestHold.h"
#include "support/LeastGrowth.h"

#include <QElapsedTimer>

namespace zeph {

namespace {

constexpr double longestHold = 5.0; // ms

class EdsEnduranceTest : public EdsDaemonFixture {};

} // namespace

TEST_F(EdsEnduranceTest, aThousandAppearancesLeaveNothingBehind) {
    EdsPacing pacing;
    pacing.firstRetry = pacing.lastRetry = pacing.coalescing = std::chrono::milliseconds(2);
    makeStore(pacing);
    ASSERT_EQ(eventsOf(2024, 5, 7), std::nullopt);
    int minute = 0;
    const auto appearances = [&] {
        for (int i = 0; i < 100; ++i) {
            minute = (minute + 1) % 60; // so that only this daemon can have told it
            setEventAt(minute);
            daemon.appear();
            ASSERT_TRUE(comesToHaveEventAt(minute));
            daemon.vanish();
        }
    };
    for (int i = 0; i < 9; ++i) {
        appearances();
    }
    constexpr std::int64_t enough = 100 * 400; // the client library itself keeps some 250 bytes
    const auto growth = leastGrowth(enough, appearances);
    RecordProperty("growth_bytes", std::to_string(growth));
    EXPECT_LT(growth, enough);
}

TEST_F(EdsEnduranceTest, aDaemonThatFallsSilentAtAnyStepHoldsNobodyAndIsHeardLater) {
    setEventAt(5);
    for (const QString &step : FakeCalendarDaemon::steps()) {
        SCOPED_TRACE(step.toStdString());
        daemon.holdAt(step);
        daemon.appear();
        makeStore();
        const double hold = quietestHoldMs([&](MainThreadWatch &watch) {
            EXPECT_EQ(eventsOf(2024, 5, 7), std::nullopt);
            EXPECT_TRUE(waitUntil([&] { return daemon.heldQuestions() > 0; }));
            runLoopFor(std::chrono::milliseconds(50));
            EXPECT_EQ(eventsOf(2024, 5, 7), std::nullopt);
            EXPECT_GT(watch.beats(), 10);
        });
        EXPECT_LT(hold, longestHold);
        daemon.release();
        EXPECT_TRUE(comesToHaveEventAt(5));
        daemon.vanish();
    }
}

TEST_F(EdsEnduranceTest, aDaemonThatNeverAnswersDoesNotHoldUpTheEnd) {
    setEventAt(5);
    for (const QString &step : FakeCalendarDaemon::steps()) {
        SCOPED_TRACE(step.toStdString());
        daemon.holdAt(step);
        daemon.appear();
        makeStore();
        EXPECT_EQ(eventsOf(2024, 5, 7), std::nullopt);
        EXPECT_TRUE(waitUntil([&] { return daemon.heldQuestions() > 0; }));
        QElapsedTimer end;
        end.start();
        store.reset();
        EXPECT_LT(end.elapsed(), 500);
        daemon.vanish();
        daemon.release();
    }
}

TEST_F(EdsEnduranceTest, aStoreThatBeginsWhileAFormerOneEndsReadsAllTheSame) {
    for (int round = 0; round < 40; ++round) {
        SCOPED_TRACE(round);
        setEventAt(round % 60);
        daemon.holdAt(QStringLiteral("SetFieldsOfInterest")); // which its thread waits for
        daemon.appear();
        makeStore();
        EXPECT_EQ(eventsOf(2024, 5, 7), std::nullopt);
        ASSERT_TRUE(waitUntil([&] { return daemon.heldQuestions() > 0; }));
        store.reset();
        daemon.vanish();
        daemon.release();
        daemon.appear();
        makeStore();
        ASSERT_TRUE(comesToHaveEventAt(round % 60));
        daemon.vanish();
    }
}

TEST_F(EdsEnduranceTest, theEndOfTheThreadCanBeWaitedFor) {
    setEventAt(5);
    daemon.appear();
    makeStore();
    EXPECT_TRUE(store->finish(std::chrono::milliseconds(0))) << "nothing has begun";
    ASSERT_TRUE(comesToHaveEventAt(5));
    EXPECT_TRUE(store->finish(std::chrono::seconds(20))) << "the session goes on";
}

TEST_F(EdsEnduranceTest, aDaemonThatEndsAtAnyStepIsAskedAgainWhenItIsBack) {
    int minute = 0;
    for (const QString &step : FakeCalendarDaemon::steps()) {
        SCOPED_TRACE(step.toStdString());
        setEventAt(++minute);
        daemon.vanishAt(step);
        daemon.appear();
        makeStore();
        EXPECT_EQ(eventsOf(2024, 5, 7), std::nullopt);
        ASSERT_TRUE(waitUntil([&] { return !daemon.isThere(); }));
        daemon.appear();
        EXPECT_TRUE(comesToHaveEventAt(minute));
        daemon.vanish();
    }
}

} // namespace zeph
