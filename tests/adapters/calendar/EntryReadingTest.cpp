// SPDX-License-Identifier: MIT
#include "adapters/calendar/plugin/EntryReading.h"
#include "adapters/calendar/plugin/LocalZone.h"
#include "support/QtPrinters.h"

#include <QByteArray>
#include <QDateTime>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr Date noonInUtc{1'715'083'200.0}; // 2024-05-07 12:00
constexpr double day = 86'400;
constexpr double hour = 3'600;

ICalTimezone *builtInZone(const char *name, gpointer /*where*/, GCancellable * /*cancellable*/,
                          GError ** /*error*/) {
    return i_cal_timezone_get_builtin_timezone(name);
}

class EntryReadingTest : public testing::Test {
protected:
    void add(const QByteArray &kind, const QByteArray &lines) {
        QByteArray text = "BEGIN:" + kind + "\n" + lines + "\nEND:" + kind + "\n";
        text.replace("\n", "\r\n");
        GLibPtr<ICalComponent> entry(i_cal_component_new_from_string(text.constData()));
        ASSERT_TRUE(entry);
        entries[entryIdOf(entry.get())] = std::move(entry);
    }

    std::vector<EdsOccurrence> occurrences(const LocalZone &local) const {
        return readOccurrences(entries, query, {&builtInZone, nullptr, local.get(), nullptr});
    }
    std::vector<EdsTask> tasks(const LocalZone &local) const {
        return readTasks(entries, {&builtInZone, nullptr, local.get(), nullptr});
    }

    Entries entries;
    EdsQuery query{true, true, true, noonInUtc - 12 * hour, noonInUtc + 12 * hour, {}, 0};
};

} // namespace

TEST_F(EntryReadingTest, aZoneThatIsAnOffsetIsReadAsOne) {
    add("VEVENT", "UID:f\nSUMMARY:F\nDTSTART:20240507T120000\nDURATION:PT1H");
    const LocalZone halfPastFive("UTC+05:30");
    EXPECT_EQ(occurrences(halfPastFive),
              (std::vector{
                  EdsOccurrence{noonInUtc - 5.5 * hour, noonInUtc - 4.5 * hour, false, u"F"_s}}));
    const LocalZone behind("UTC-03:00");
    EXPECT_EQ(occurrences(behind).at(0).start, noonInUtc + 3 * hour);
}

TEST_F(EntryReadingTest, aNameThatIsNoZoneCountsAsUtc) {
    add("VEVENT", "UID:f\nDTSTART:20240507T120000\nDURATION:PT1H");
    for (const char *name : {"", "Nowhere/Land", "../etc/passwd"}) {
        EXPECT_EQ(occurrences(LocalZone(name)).at(0).start, noonInUtc) << name;
    }
}

TEST_F(EntryReadingTest, theLocalZoneFollowsTheSystemsRulesYearByYear) {
    add("VEVENT", "UID:f\nDTSTART:20000101T120000\nDURATION:PT1H\nRRULE:FREQ=DAILY");
    const auto offset = [this](const char *zone, const char *noon) {
        const Date utc{static_cast<double>(
            QDateTime::fromString(QLatin1String(noon), Qt::ISODate).toSecsSinceEpoch())};
        query.windowStart = utc - 12 * hour;
        query.windowEnd = utc + 11 * hour;
        const auto found = occurrences(LocalZone(zone));
        return found.size() == 1 ? (utc - found.front().start) / hour : -1;
    };
    EXPECT_EQ(offset("Africa/Cairo", "2021-07-01T12:00:00Z"), 2); // no summer time in these years
    EXPECT_EQ(offset("Africa/Cairo", "2025-07-01T12:00:00Z"), 3);
    EXPECT_EQ(offset("Asia/Jerusalem", "2005-10-05T12:00:00Z"), 3); // ended on the 9th that year
    EXPECT_EQ(offset("Asia/Jerusalem", "2005-10-12T12:00:00Z"), 2);
    EXPECT_EQ(offset("CET-1CEST,M3.5.0,M10.5.0/3", "2025-07-01T12:00:00Z"), 2);
}

TEST_F(EntryReadingTest, anUnknownZoneOfAnEntryCountsAsTheLocalOne) {
    add("VEVENT", "UID:z\nDTSTART;TZID=Own/Invention:20240507T140000\n"
                  "DTEND;TZID=Own/Invention:20240507T150000");
    EXPECT_EQ(occurrences(LocalZone("Europe/Berlin")).at(0).start, noonInUtc);
}

TEST_F(EntryReadingTest, aDayThatBeginsAtOneHasItsTasksAtNoon) {
    // Clocks went from 0:00 to 1:00 on that day in Beirut.
    add("VTODO", "UID:t\nSUMMARY:T\nDUE;VALUE=DATE:20240331");
    EXPECT_EQ(tasks(LocalZone("Asia/Beirut")),
              (std::vector{EdsTask{Date{1'711'875'600.0}, true, u"T"_s}}));
}

TEST_F(EntryReadingTest, aStartDayAndALengthStandForADueDay) {
    add("VTODO", "UID:t\nDTSTART;VALUE=DATE:20240506\nDURATION:P1D");
    EXPECT_EQ(tasks(LocalZone()), (std::vector{EdsTask{noonInUtc, true, std::nullopt}}));
}

TEST_F(EntryReadingTest, aDueDateThatIsNoneIsLeftOut) {
    add("VTODO", "UID:a\nDUE:garbage");
    add("VTODO", "UID:b\nDUE:20241399T990000");
    add("VTODO", "UID:c\nDUE:");
    EXPECT_EQ(tasks(LocalZone()), std::vector<EdsTask>());
}

TEST_F(EntryReadingTest, anEmptyTitleIsNone) {
    add("VEVENT", "UID:e\nSUMMARY:\nDTSTART:20240507T120000Z\nDURATION:PT1H");
    EXPECT_EQ(occurrences(LocalZone()).at(0).title, std::nullopt);
}

TEST_F(EntryReadingTest, anEventWithoutAStartIsLeftOutAndTheOthersStay) {
    add("VEVENT", "UID:a\nSUMMARY:No start");
    add("VEVENT", "UID:b\nSUMMARY:Bad rule\nDTSTART:20240507T100000Z\nRRULE:FREQ=OFTEN");
    add("VEVENT", "UID:c\nSUMMARY:Good\nDTSTART:20240507T120000Z\nDURATION:PT1H");
    const auto found = occurrences(LocalZone());
    ASSERT_FALSE(found.empty());
    EXPECT_EQ(found.back().title, u"Good"_s);
}

TEST_F(EntryReadingTest, aSeriesThatRepeatsWithinTheHourIsRead) {
    add("VEVENT", "UID:m\nDTSTART:20240507T090000Z\nDURATION:PT1H\n"
                  "RRULE:FREQ=MINUTELY;INTERVAL=90;COUNT=4");
    const auto found = occurrences(LocalZone());
    ASSERT_EQ(found.size(), 4U);
    EXPECT_EQ(found.back().start, noonInUtc + 1.5 * hour);
}

TEST_F(EntryReadingTest, aSeriesOfMillionsOfStepsIsNotWalkedAlong) {
    add("VEVENT", "UID:s\nDTSTART:20000101T000000Z\nRRULE:FREQ=SECONDLY");
    add("VEVENT", "UID:t\nDTSTART:20000101T000000Z\nRRULE:FREQ=MINUTELY;INTERVAL=7");
    add("VEVENT",
        "UID:h\nDTSTART:20000101T000000Z\n"
        "RRULE:FREQ=DAILY;BYHOUR=0,1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,23;"
        "BYMINUTE=0,1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,23,24,25,26,27,28,29,"
        "30,31,32,33,34,35,36,37,38,39,40,41,42,43,44,45,46,47,48,49,50,51,52,53,54,55,56,57,58,"
        "59");
    add("VEVENT", "UID:u\nSUMMARY:Other\nDTSTART:20240507T120000Z\nDURATION:PT1H");
    const auto found = occurrences(LocalZone());
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found.front().title, u"Other"_s);
}

TEST_F(EntryReadingTest, aSeriesThatLeavesOutMillionsOfStepsIsNotWalkedAlong) {
    add("VEVENT", "UID:x\nSUMMARY:X\nDTSTART:19900101T120000Z\nDURATION:PT1H\nRRULE:FREQ=DAILY\n"
                  "EXRULE:FREQ=SECONDLY");
    EXPECT_TRUE(occurrences(LocalZone()).empty());
}

TEST_F(EntryReadingTest, whatASeriesLeavesOutByARuleIsLeftOut) {
    // 2024-05-07 is a Tuesday.
    add("VEVENT", "UID:x\nSUMMARY:X\nDTSTART:20240430T120000Z\nDURATION:PT1H\nRRULE:FREQ=DAILY\n"
                  "EXRULE:FREQ=WEEKLY;BYDAY=TU");
    add("VEVENT", "UID:y\nSUMMARY:Y\nDTSTART:20240430T120000Z\nDURATION:PT1H\nRRULE:FREQ=DAILY\n"
                  "EXRULE:FREQ=WEEKLY;BYDAY=WE");
    const auto found = occurrences(LocalZone());
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found.front().title, u"Y"_s);
}

TEST_F(EntryReadingTest, aSeriesOfMillionsOfStepsHasItsFirstInstanceNonetheless) {
    add("VEVENT", "UID:s\nSUMMARY:S\nDTSTART:20240430T120000Z\nDURATION:P8D\n"
                  "RRULE:FREQ=SECONDLY\nRDATE:20240507T130000Z");
    EXPECT_EQ(occurrences(LocalZone()).at(0),
              (EdsOccurrence{noonInUtc - 7 * day, noonInUtc + day, false, u"S"_s}));
}

TEST_F(EntryReadingTest, hourlySinceYearsAgoIsNoHurdle) {
    add("VEVENT", "UID:h\nDTSTART:20000101T000000Z\nDURATION:PT1H\nRRULE:FREQ=HOURLY");
    EXPECT_EQ(occurrences(LocalZone()).size(), 24U);
}

TEST_F(EntryReadingTest, nothingIsExpandedOnceItIsCancelled) {
    add("VEVENT", "UID:d\nDTSTART:20000101T120000Z\nDURATION:PT1H\nRRULE:FREQ=DAILY");
    const GLibPtr<GCancellable> cancellable(g_cancellable_new());
    const LocalZone utc;
    const ZoneLookup zones{&builtInZone, nullptr, utc.get(), cancellable.get()};
    EXPECT_EQ(readOccurrences(entries, query, zones).size(), 1U);
    g_cancellable_cancel(cancellable.get());
    EXPECT_TRUE(readOccurrences(entries, query, zones).empty());
}

TEST_F(EntryReadingTest, aSeriesOfDaysThatNeverComeEnds) {
    add("VEVENT", "UID:n\nDTSTART:20000101T000000Z\nRRULE:FREQ=YEARLY;BYMONTH=2;BYMONTHDAY=30");
    add("VEVENT", "UID:o\nDTSTART:20000101T000000Z\nRRULE:FREQ=DAILY;BYMONTH=2;BYMONTHDAY=30");
    EXPECT_TRUE(occurrences(LocalZone()).empty());
}

TEST_F(EntryReadingTest, thousandsOfDaysOfASeriesAreNoHurdle) {
    add("VEVENT", "UID:d\nSUMMARY:D\nDTSTART:19900101T120000Z\nDURATION:PT1H\nRRULE:FREQ=DAILY");
    EXPECT_EQ(occurrences(LocalZone()),
              (std::vector{EdsOccurrence{noonInUtc, noonInUtc + hour, false, u"D"_s}}));
}

} // namespace zeph
