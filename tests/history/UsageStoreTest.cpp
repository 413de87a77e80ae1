// SPDX-License-Identifier: MIT
#include "history/UsageStore.h"

#include "history/Database.h"
#include "support/ManualClock.h"
#include "support/QtPrinters.h"
#include "support/UtcCalendar.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace zeph {

namespace {

AppUsage usage(const QString &id, double seconds, const QString &name = u"App"_s) {
    AppUsage made;
    made.bundleID = id;
    made.name = name;
    made.seconds = seconds;
    return made;
}

ActivitySummary active(double seconds) {
    ActivitySummary made;
    made.activeSeconds = seconds;
    return made;
}

InputRhythm typed(qint64 keystrokes) {
    InputRhythm made;
    made.totalKeystrokes = keystrokes;
    return made;
}

class UsageStoreTest : public testing::Test {
protected:
    void saveDay(const QString &key, double activeSeconds, qint64 keystrokes) {
        store->saveDailyStats(active(activeSeconds), typed(keystrokes), key);
    }
    QString today() const { return store->dayKey(clock.now()); }
    void restart() {
        store.reset();
        store = std::make_unique<UsageStore>(folder.path(), clock, calendar);
    }
    /// A connection beside the store's own, for what its operations don't write.
    std::unique_ptr<Database> file() const {
        return Database::open(folder.filePath(u"zeph.sqlite"_s));
    }

    QTemporaryDir folder;
    ManualClock clock{1'700'000'000}; // 2023-11-14 22:13:20 UTC
    UtcCalendar calendar;
    std::unique_ptr<UsageStore> store =
        std::make_unique<UsageStore>(folder.path(), clock, calendar);
};

TEST_F(UsageStoreTest, anEmptyDatabaseHasNoTotals) {
    EXPECT_EQ(store->averageKPM(true, 14), 0);
    EXPECT_EQ(store->averageKPM(false, 14), 0);
    EXPECT_EQ(store->averageActiveSeconds(14), 0);
    EXPECT_EQ(store->loadDailyStats(today()), std::nullopt);
    EXPECT_THAT(store->loadAppUsage(today()), IsEmpty());
}

TEST_F(UsageStoreTest, theDayKeyIsTheCalendarsDay) {
    EXPECT_EQ(today(), u"2023-11-14"_s);
}

TEST_F(UsageStoreTest, aDayOf301ActiveSecondsCountsIntoTheAverage) {
    saveDay(u"2023-11-13"_s, 301, 100);
    EXPECT_DOUBLE_EQ(store->averageKPM(true, 14), 100 / (301 / 60.0));
}

TEST_F(UsageStoreTest, aDayOfExactly300ActiveSecondsDoesNotCount) {
    saveDay(u"2023-11-13"_s, 300, 100);
    EXPECT_EQ(store->averageKPM(true, 14), 0);
}

TEST_F(UsageStoreTest, theAverageCanIncludeToday) {
    saveDay(u"2023-11-13"_s, 600, 100); // 10 a minute
    saveDay(today(), 600, 300);         // 30 a minute
    EXPECT_DOUBLE_EQ(store->averageKPM(false, 14), 20);
    EXPECT_DOUBLE_EQ(store->averageKPM(true, 14), 10);
    EXPECT_DOUBLE_EQ(store->averageKPM(false, 1), 30); // the one row is the newest
}

TEST_F(UsageStoreTest, theAverageIsOneOfDailyRatesAndNotOverTheTotalTime) {
    saveDay(u"2023-11-12"_s, 600, 100);   // 10 a minute for 10 minutes
    saveDay(u"2023-11-13"_s, 6000, 9000); // 90 a minute for 100 minutes
    EXPECT_DOUBLE_EQ(store->averageKPM(true, 14), 50);
}

TEST_F(UsageStoreTest, aDayWithoutKeystrokesUsesUpARowAndAddsNothing) {
    saveDay(u"2023-11-12"_s, 600, 100);
    saveDay(u"2023-11-13"_s, 600, 0);
    EXPECT_EQ(store->averageKPM(true, 1), 0);
    EXPECT_DOUBLE_EQ(store->averageKPM(true, 2), 10);
}

TEST_F(UsageStoreTest, onlyTheNewestFourteenRowsAreRead) {
    for (int day = 1; day <= 13; ++day) {
        saveDay(u"2023-11-%1"_s.arg(day, 2, 10, QChar(u'0')), 600, 100);
    }
    saveDay(u"2023-10-31"_s, 1200, 480); // the fourteenth
    saveDay(u"2023-10-30"_s, 60'000, 90'000);
    saveDay(u"2022-12-31"_s, 60'000, 90'000);
    EXPECT_DOUBLE_EQ(store->averageKPM(true, 14), (13 * 10.0 + 24.0) / 14);
    EXPECT_DOUBLE_EQ(store->averageActiveSeconds(14), (13 * 600.0 + 1200.0) / 14);
}

TEST_F(UsageStoreTest, theActiveAverageLeavesOutTodayAndDaysWithoutActivity) {
    saveDay(u"2023-11-11"_s, 0, 0);
    saveDay(u"2023-11-12"_s, 100, 0);
    saveDay(u"2023-11-13"_s, 200, 0);
    saveDay(today(), 50'000, 0);
    EXPECT_DOUBLE_EQ(store->averageActiveSeconds(14), 150);
}

TEST_F(UsageStoreTest, everyFieldOfADayIsReadBack) {
    ActivitySummary summary{
        Date{1'699'950'000.25}, Date{1'699'990'000.5}, 7200.5, 9000.25, 42, 1234.5,
        u"Tëxt · Editor"_s};
    InputRhythm rhythm;
    rhythm.totalKeystrokes = 5'000'000'000;
    rhythm.mouseClicks = 321;
    rhythm.mouseDistanceMeters = 12.75;
    store->saveDailyStats(summary, rhythm, today());
    restart();
    const auto loaded = store->loadDailyStats(today());
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded->first, summary);
    EXPECT_EQ(loaded->second, rhythm);
}

TEST_F(UsageStoreTest, momentaryFieldsAreNotStored) {
    ActivitySummary summary = active(10);
    summary.isIdle = true;
    InputRhythm rhythm = typed(5);
    rhythm.keystrokesPerMinute = 80;
    rhythm.dailyAverageKPM = 60;
    store->saveDailyStats(summary, rhythm, today());
    const auto loaded = store->loadDailyStats(today());
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded->first, active(10));
    EXPECT_EQ(loaded->second, typed(5));
}

TEST_F(UsageStoreTest, keepsTheFirstFirstActiveAndTakesTheSecondLastActive) {
    ActivitySummary summary;
    summary.firstActive = Date{1000};
    summary.lastActive = Date{2000};
    store->saveDailyStats(summary, {}, today());
    summary.firstActive = Date{500};
    summary.lastActive = Date{3000};
    store->saveDailyStats(summary, {}, today());
    EXPECT_EQ(store->loadDailyStats(today())->first.firstActive, Date{1000});
    EXPECT_EQ(store->loadDailyStats(today())->first.lastActive, Date{3000});
}

TEST_F(UsageStoreTest, takesTheSecondLastActiveThoughItIsAbsent) {
    ActivitySummary summary;
    summary.firstActive = Date{1000};
    summary.lastActive = Date{2000};
    store->saveDailyStats(summary, {}, today());
    store->saveDailyStats({}, {}, today());
    EXPECT_EQ(store->loadDailyStats(today())->first.firstActive, Date{1000});
    EXPECT_EQ(store->loadDailyStats(today())->first.lastActive, std::nullopt);
}

TEST_F(UsageStoreTest, aFirstActiveThatCameLateIsKeptFromThenOn) {
    store->saveDailyStats({}, {}, today());
    ActivitySummary summary;
    summary.firstActive = Date{1000};
    store->saveDailyStats(summary, {}, today());
    EXPECT_EQ(store->loadDailyStats(today())->first.firstActive, Date{1000});
}

TEST_F(UsageStoreTest, savingADayAgainReplacesItsCounters) {
    saveDay(today(), 900, 90);
    saveDay(today(), 600, 60);
    EXPECT_EQ(store->loadDailyStats(today())->first.activeSeconds, 600);
    EXPECT_EQ(store->loadDailyStats(today())->second.totalKeystrokes, 60);
}

TEST_F(UsageStoreTest, aNullOrEmptyFocusApplicationLoadsAsAbsent) {
    ActivitySummary summary;
    store->saveDailyStats(summary, {}, u"2023-11-01"_s);
    summary.longestFocusApp = QString();
    store->saveDailyStats(summary, {}, u"2023-11-02"_s);
    EXPECT_EQ(store->loadDailyStats(u"2023-11-01"_s)->first.longestFocusApp, std::nullopt);
    EXPECT_EQ(store->loadDailyStats(u"2023-11-02"_s)->first.longestFocusApp, std::nullopt);
    const auto types =
        file()->query(u"SELECT typeof(longest_focus_app) FROM daily_stats ORDER BY day"_s, {},
                      [](const DatabaseRow &row) { return row.text(0); });
    EXPECT_THAT(types, ElementsAre(u"null"_s, u"text"_s));
}

TEST_F(UsageStoreTest, aFirstActiveOfZeroLoadsAsAbsent) {
    ActivitySummary summary;
    summary.firstActive = Date{0};
    summary.lastActive = Date{-5};
    store->saveDailyStats(summary, {}, today());
    EXPECT_EQ(store->loadDailyStats(today())->first.firstActive, std::nullopt);
    EXPECT_EQ(store->loadDailyStats(today())->first.lastActive, std::nullopt);
}

TEST_F(UsageStoreTest, applicationsAreReadBackMostSecondsFirstWithoutTheirIcon) {
    AppUsage editor = usage(u"org.editor"_s, 10.5, u"Editor"_s);
    editor.iconPath = u"/icon.svg"_s;
    store->saveAppUsage({editor, usage(u"org.browser"_s, 30)}, today());
    editor.iconPath.reset();
    EXPECT_THAT(store->loadAppUsage(today()), ElementsAre(usage(u"org.browser"_s, 30), editor));
}

TEST_F(UsageStoreTest, savingAnApplicationAgainReplacesSecondsAndName) {
    store->saveAppUsage({usage(u"a"_s, 30, u"Old"_s), usage(u"b"_s, 20)}, today());
    store->saveAppUsage({usage(u"a"_s, 12, u"New"_s)}, today());
    EXPECT_THAT(store->loadAppUsage(today()),
                ElementsAre(usage(u"b"_s, 20), usage(u"a"_s, 12, u"New"_s)));
}

TEST_F(UsageStoreTest, savingNoApplicationsChangesNothing) {
    store->saveAppUsage({usage(u"a"_s, 30)}, today());
    store->saveAppUsage({}, today());
    EXPECT_THAT(store->loadAppUsage(today()), ElementsAre(usage(u"a"_s, 30)));
}

TEST_F(UsageStoreTest, theNextDayStartsFromNothing) {
    saveDay(today(), 900, 90);
    store->saveAppUsage({usage(u"a"_s, 30)}, today());
    clock.advance(86400);
    EXPECT_EQ(today(), u"2023-11-15"_s);
    EXPECT_EQ(store->loadDailyStats(today()), std::nullopt);
    EXPECT_THAT(store->loadAppUsage(today()), IsEmpty());
}

TEST_F(UsageStoreTest, aRestartRestoresTheDay) {
    saveDay(today(), 900, 90);
    store->saveAppUsage({usage(u"a"_s, 30)}, today());
    restart();
    EXPECT_EQ(store->loadDailyStats(today()), std::pair(active(900), typed(90)));
    EXPECT_THAT(store->loadAppUsage(today()), ElementsAre(usage(u"a"_s, 30)));
}

TEST_F(UsageStoreTest, theTablesAreMadeWordForWord) {
    const auto made = file()->query(u"SELECT sql FROM sqlite_master WHERE sql IS NOT NULL"_s, {},
                                    [](const DatabaseRow &row) { return row.text(0); });
    EXPECT_THAT(made, ElementsAre(u"CREATE TABLE app_usage (\n    day TEXT NOT NULL,\n    "
                                  "bundle_id TEXT NOT NULL,\n    name TEXT NOT NULL,\n    seconds "
                                  "REAL NOT NULL DEFAULT 0,\n    PRIMARY KEY (day, bundle_id)\n)"_s,
                                  u"CREATE TABLE daily_stats (\n    day TEXT PRIMARY KEY,\n    "
                                  "keystrokes INTEGER NOT NULL DEFAULT 0,\n    mouse_clicks "
                                  "INTEGER NOT NULL DEFAULT 0,\n    mouse_distance REAL NOT NULL "
                                  "DEFAULT 0,\n    active_seconds REAL NOT NULL DEFAULT 0,\n    "
                                  "machine_on_seconds REAL NOT NULL DEFAULT 0,\n    app_switches "
                                  "INTEGER NOT NULL DEFAULT 0,\n    longest_focus_seconds REAL NOT "
                                  "NULL DEFAULT 0,\n    longest_focus_app TEXT,\n    first_active "
                                  "REAL,\n    last_active REAL\n)"_s));
}

TEST_F(UsageStoreTest, openingAnExistingFileAgainChangesNoRow) {
    saveDay(today(), 900, 90);
    store->saveAppUsage({usage(u"a"_s, 30)}, today());
    const auto dump = [this] {
        return file()->query(u"SELECT * FROM daily_stats JOIN app_usage USING (day)"_s, {},
                             [](const DatabaseRow &row) {
                                 QStringList columns;
                                 for (int column = 0; column < 14; ++column) {
                                     columns.append(row.text(column));
                                 }
                                 return columns.join(u'|');
                             });
    };
    const auto before = dump();
    ASSERT_EQ(before.size(), 1U);
    restart();
    restart();
    EXPECT_EQ(dump(), before);
}

} // namespace

} // namespace zeph
