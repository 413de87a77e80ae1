// SPDX-License-Identifier: MIT
#include "adapters/calendar/EdsServerFixture.h"
#include "adapters/power/QuietestHold.h"
#include "support/LeastGrowth.h"

#include <QDir>
#include <QFile>

#include <csignal>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr double longestHold = 5.0; // ms
constexpr std::chrono::seconds patience{20};
constexpr auto oneEvent = "SUMMARY:A\nDTSTART:20240507T080000Z\nDTEND:20240507T083000Z";

class EdsServerTest : public EdsServerFixture {
protected:
    static CalendarEvent numbered(int number) {
        return {false, at(2024, 5, 7, 8) + number % 600 * 60.0, u"Event %1"_s.arg(number)};
    }

    static QList<QByteArray> manyEvents(int count) {
        QList<QByteArray> events;
        for (int i = 0; i < count; ++i) {
            const QDateTime start =
                QDateTime::fromSecsSinceEpoch(qint64(numbered(i).start.secondsSince1970), Qt::UTC);
            const QByteArray number = QByteArray::number(i);
            const QByteArray text = start.toString(u"yyyyMMdd'T'hhmmss'Z'"_s).toLatin1();
            events.append("UID:many-" + number + "\nSUMMARY:Event " + number + "\nDTSTART:" + text +
                          "\nDURATION:PT30M");
        }
        return events;
    }

    std::size_t countOn(int day) {
        const auto events = eventsOf(2024, 5, day);
        return events ? events->size() : 0;
    }

    static int readingThreads() {
        int found = 0;
        const QStringList threads = QDir(u"/proc/self/task"_s).entryList(QDir::Dirs);
        for (const QString &thread : threads) {
            QFile name(u"/proc/self/task/%1/comm"_s.arg(thread));
            found += name.open(QFile::ReadOnly) && name.readAll().trimmed() == "zeph-calendars";
        }
        return found;
    }
};

} // namespace

TEST_F(EdsServerTest, twoThousandEventsAreReadWithoutHoldingTheMainThread) {
    CalendarOwner owner{E_CAL_CLIENT_SOURCE_TYPE_EVENTS};
    ASSERT_TRUE(owner.addAll(manyEvents(2000)));
    std::vector<std::unique_ptr<EdsEventStore>> former; // an end may take its time
    const double hold = quietestHoldMs([&](MainThreadWatch &watch) {
        former.push_back(std::move(store));
        makeStore();
        EXPECT_TRUE(waitUntil([&] { return countOn(7) == 2000; }, patience));
        EXPECT_GT(watch.beats(), 20);
    });
    EXPECT_LT(hold, longestHold);
    RecordProperty("longest_hold_ms", std::to_string(hold));
}

TEST_F(EdsServerTest, aServerThatHangsHoldsNeitherTheMainThreadNorTheEnd) {
    CalendarOwner owner{E_CAL_CLIENT_SOURCE_TYPE_EVENTS};
    ASSERT_TRUE(owner.add("a", oneEvent));
    ASSERT_GT(server()->signalAll(SIGSTOP), 0);
    const double hold = quietestHoldMs([&](MainThreadWatch &watch) {
        for (int i = 0; i < 5; ++i) {
            EXPECT_EQ(eventsOf(2024, 5, 7), std::nullopt);
            store->fetchIncompleteReminders(at(2024, 5, 8), [](const auto &) {});
            runLoopFor(std::chrono::milliseconds(100));
        }
        EXPECT_GT(watch.beats(), 20);
    });
    EXPECT_LT(hold, longestHold);
    consent(2, 2);
    EXPECT_EQ(eventsOf(2024, 5, 7), std::nullopt);
    EXPECT_EQ(store->authorizationStatus(EntityType::reminder), EventAccess::denied);
    EXPECT_TRUE(waitUntil([&] { return readingThreads() == 0; })) << "the server is not waited for";

    consent(3, 3);
    EXPECT_EQ(eventsOf(2024, 5, 7), std::nullopt);
    QElapsedTimer end;
    end.start();
    store.reset();
    EXPECT_LT(end.elapsed(), 500);

    makeStore(); // another one, which the server answers once it goes on
    EXPECT_EQ(eventsOf(2024, 5, 7), std::nullopt);
    server()->signalAll(SIGCONT);
    EXPECT_TRUE(waitUntil([&] { return countOn(7) == 1; }, patience));
}

TEST_F(EdsServerTest, aServerThatHangsLaterLeavesTheLastAnswer) {
    CalendarOwner owner{E_CAL_CLIENT_SOURCE_TYPE_EVENTS};
    ASSERT_TRUE(owner.add("a", oneEvent));
    ASSERT_TRUE(waitUntil([&] { return countOn(7) == 1; }, patience));
    ASSERT_GT(server()->signalAll(SIGSTOP), 0);
    EXPECT_EQ(countOn(7), 1U);
    runLoopFor(std::chrono::milliseconds(200));
    EXPECT_EQ(countOn(7), 1U);
    server()->signalAll(SIGCONT);
}

TEST_F(EdsServerTest, aServerKilledInTheMiddleOfAQueryIsAskedAgain) {
    CalendarOwner owner{E_CAL_CLIENT_SOURCE_TYPE_EVENTS};
    ASSERT_TRUE(owner.addAll(manyEvents(600)));
    ASSERT_TRUE(waitUntil([&] { return owner.isStored("UID:many-599"); }, patience));
    // Before the question has left, while it is being answered and thereabouts.
    for (const int milliseconds : {0, 30, 60, 90}) {
        makeStore();
        EXPECT_EQ(eventsOf(2024, 5, 7), std::nullopt);
        runLoopFor(std::chrono::milliseconds(milliseconds));
        ASSERT_GT(server()->signalAll(SIGKILL, "evolution-calendar-factory"), 0);
        EXPECT_TRUE(waitUntil([&] { return countOn(7) == 600; }, patience));
    }
}

TEST_F(EdsServerTest, aServerKilledAfterTheAnswerIsFollowedWhenItIsBack) {
    CalendarOwner owner{E_CAL_CLIENT_SOURCE_TYPE_EVENTS};
    ASSERT_TRUE(owner.add("a", oneEvent));
    ASSERT_TRUE(waitUntil([&] { return countOn(7) == 1 && owner.isStored("UID:a"); }, patience));
    ASSERT_GT(server()->signalAll(SIGKILL), 0); // the registry as well
    EXPECT_EQ(countOn(7), 1U) << "the last answer stays meanwhile";

    CalendarOwner another{E_CAL_CLIENT_SOURCE_TYPE_EVENTS};
    ASSERT_TRUE(another.add("b", "SUMMARY:B\nDTSTART:20240507T090000Z\nDTEND:20240507T093000Z"));
    EXPECT_TRUE(waitUntil([&] { return countOn(7) == 2; }, patience));
}

TEST_F(EdsServerTest, memoryStaysFlatOverRestartsOfTheServer) {
    CalendarOwner owner{E_CAL_CLIENT_SOURCE_TYPE_EVENTS};
    ASSERT_TRUE(owner.addAll(manyEvents(200)));
    ASSERT_TRUE(waitUntil([&] { return owner.isStored("UID:many-199"); }, patience));
    // Each time another window is asked for, so that only the new server can have answered.
    int number = 0;
    const auto restart = [&] {
        server()->signalAll(SIGKILL, "evolution-calendar-factory");
        const bool isEven = ++number % 2 == 0;
        EXPECT_TRUE(waitUntil(
            [&] {
                const auto events = eventsOf(2024, 5, isEven ? 7 : 3);
                return events && events->size() == (isEven ? 200U : 0U);
            },
            patience));
    };
    const auto restarts = [&] {
        restart();
        restart();
    };
    restarts();                                // fills the caches
    constexpr std::int64_t enough = 64 * 1024; // the entries held once more take ten times that
    const auto growth = leastGrowth(enough, restarts);
    RecordProperty("growth_bytes", std::to_string(growth));
    EXPECT_LT(growth, enough);
}

TEST_F(EdsServerTest, withdrawnConsentEndsTheReadingAtOnceAndAnewItBeginsAgain) {
    CalendarOwner owner{E_CAL_CLIENT_SOURCE_TYPE_EVENTS};
    ASSERT_TRUE(owner.add("a", oneEvent));
    ASSERT_TRUE(waitUntil([&] { return countOn(7) == 1; }, patience));
    ASSERT_EQ(readingThreads(), 1);

    consent(2, 2);
    EXPECT_TRUE(waitUntil([&] { return readingThreads() == 0; })) << "without another question";
    EXPECT_EQ(store->authorizationStatus(EntityType::event), EventAccess::denied);
    EXPECT_EQ(store->authorizationStatus(EntityType::reminder), EventAccess::denied);
    EXPECT_EQ(eventsOf(2024, 5, 7), std::nullopt);

    consent(3, 3);
    EXPECT_EQ(eventsOf(2024, 5, 7), std::nullopt) << "nothing was kept";
    EXPECT_TRUE(waitUntil([&] { return countOn(7) == 1; }, patience));
}

TEST_F(EdsServerTest, aWithdrawalForgetsEverythingWithoutBeingAskedAbout) {
    CalendarOwner owner{E_CAL_CLIENT_SOURCE_TYPE_EVENTS};
    ASSERT_TRUE(owner.add("a", oneEvent));
    ASSERT_TRUE(waitUntil([&] { return countOn(7) == 1; }, patience));
    consent(2, 2);
    consent(3, 3);
    EXPECT_EQ(eventsOf(2024, 5, 7), std::nullopt);
}

} // namespace zeph
