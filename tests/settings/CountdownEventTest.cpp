// SPDX-License-Identifier: MIT
#include "settings/CountdownEvent.h"

#include "support/UtcCalendar.h"

#include <gmock/gmock.h>

namespace zeph {

namespace {

const UtcCalendar utc;

Date at(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    return *utc.dateInUTC({year, month, day, hour, minute, second});
}

CountdownEvent event(Date date, CountdownRecurrence recurrence) {
    CountdownEvent made;
    made.date = date;
    made.recurrence = recurrence;
    return made;
}

const Date thursdayMorning = at(2024, 2, 15, 9, 30);

/// A calendar that computes so many additions and no more.
class FailingCalendar : public UtcCalendar {
public:
    explicit FailingCalendar(int additions) : m_left(additions) {}
    std::optional<Date> adding(CalendarUnit unit, int count, Date date) const override {
        return m_left-- > 0 ? UtcCalendar::adding(unit, count, date) : std::nullopt;
    }

private:
    mutable int m_left;
};

TEST(CountdownEvent, withoutRecurrenceItKeepsItsDateThoughThatHasPassed) {
    const Date past = at(1999, 12, 31);
    EXPECT_EQ(event(past, CountdownRecurrence::none).effectiveDate(thursdayMorning, utc), past);
}

TEST(CountdownEvent, aWeeklyEventAtTheStartOfTodayIsNotMoved) {
    const Date today = at(2024, 2, 15);
    EXPECT_EQ(event(today, CountdownRecurrence::weekly).effectiveDate(thursdayMorning, utc), today);
}

TEST(CountdownEvent, anOccurrenceStaysCurrentForTheWholeOfItsDay) {
    const Date morning = at(2024, 2, 15, 8);
    const auto weekly = event(morning, CountdownRecurrence::weekly);
    EXPECT_EQ(weekly.effectiveDate(at(2024, 2, 15, 23, 59, 59), utc), morning);
    EXPECT_EQ(weekly.effectiveDate(at(2024, 2, 16), utc), at(2024, 2, 22, 8));
}

TEST(CountdownEvent, aWeeklyEventOfYesterdayEveningMovesToTheEveningInSixDays) {
    const auto weekly = event(at(2024, 2, 14, 23), CountdownRecurrence::weekly);
    EXPECT_EQ(weekly.effectiveDate(thursdayMorning, utc), at(2024, 2, 21, 23));
}

TEST(CountdownEvent, aFutureEventIsNotMoved) {
    const Date future = at(2031, 5, 1, 12);
    EXPECT_EQ(event(future, CountdownRecurrence::yearly).effectiveDate(thursdayMorning, utc),
              future);
}

TEST(CountdownEvent, aWeeklyEventOf30YearsBackStopsAfter1000StepsInThePast) {
    const Date start = at(1994, 2, 15, 7);
    const Date reached =
        event(start, CountdownRecurrence::weekly).effectiveDate(thursdayMorning, utc);
    EXPECT_EQ(reached, start + 1000 * 7 * 86400.0);
    EXPECT_LT(reached, thursdayMorning);
}

TEST(CountdownEvent, aMonthlyEventOfThe31stSettlesOnShorterMonthEnds) {
    const auto monthly = event(at(2023, 1, 31, 18), CountdownRecurrence::monthly);
    EXPECT_EQ(monthly.effectiveDate(at(2023, 2, 1), utc), at(2023, 2, 28, 18));
    EXPECT_EQ(monthly.effectiveDate(at(2023, 3, 1), utc), at(2023, 3, 28, 18));
    EXPECT_EQ(monthly.effectiveDate(at(2023, 8, 30), utc), at(2023, 9, 28, 18));
}

TEST(CountdownEvent, aYearlyEventOfALeapDaySettlesOnThe28th) {
    const auto yearly = event(at(2020, 2, 29, 6), CountdownRecurrence::yearly);
    EXPECT_EQ(yearly.effectiveDate(at(2021, 1, 1), utc), at(2021, 2, 28, 6));
    EXPECT_EQ(yearly.effectiveDate(at(2024, 1, 1), utc), at(2024, 2, 28, 6));
}

TEST(CountdownEvent, aStepThatTheCalendarCantComputeEndsTheWalk) {
    const auto monthly = event(at(2023, 1, 10), CountdownRecurrence::monthly);
    EXPECT_EQ(monthly.effectiveDate(thursdayMorning, FailingCalendar(2)), at(2023, 3, 10));
    EXPECT_EQ(monthly.effectiveDate(thursdayMorning, FailingCalendar(0)), at(2023, 1, 10));
}

} // namespace

} // namespace zeph
