// SPDX-License-Identifier: MIT
#include "settings/CountdownDates.h"

#include "support/UtcCalendar.h"

#include <gtest/gtest.h>

namespace zeph {

namespace {

/// Counts its additions, in a time zone that the test may change.
class CountingCalendar : public UtcCalendar {
public:
    std::optional<Date> adding(CalendarUnit unit, int count, Date date) const override {
        ++additions;
        return UtcCalendar::adding(unit, count, date);
    }
    using UtcCalendar::startOfDay;
    Date startOfDay(Date date) const override {
        return UtcCalendar::startOfDay(date + secondsEast) - secondsEast;
    }

    mutable int additions = 0;
    double secondsEast = 0;
};

class CountdownDatesTest : public testing::Test {
protected:
    static Date at(int year, int month, int day, int hour = 0) {
        return *UtcCalendar().dateInUTC({year, month, day, hour, 0, 0});
    }
    static CountdownEvent event(Date date, CountdownRecurrence recurrence) {
        return {QUuid(), QString(), date, recurrence};
    }
    std::vector<Date> on(Date reference) {
        std::vector<Date> result;
        for (const CountdownOccurrence &occurrence : dates.on(reference, events, calendar)) {
            result.push_back(occurrence.date);
        }
        return result;
    }
    /// What each event answers by itself.
    std::vector<Date> expected(Date reference) const {
        std::vector<Date> result;
        for (const CountdownEvent &event : events) {
            result.push_back(event.effectiveDate(reference, calendar));
        }
        return result;
    }

    CountingCalendar calendar;
    std::vector<CountdownEvent> events{
        event(at(2019, 1, 31, 18), CountdownRecurrence::monthly),
        event(at(2016, 2, 29, 6), CountdownRecurrence::yearly),
        event(at(2018, 3, 5, 23), CountdownRecurrence::weekly),
        event(at(1990, 3, 5, 23), CountdownRecurrence::weekly), // stops in the past
        event(at(2023, 5, 1, 12), CountdownRecurrence::none),
    };
    CountdownDates dates;
};

TEST_F(CountdownDatesTest, areTheEffectiveDatesOfEachDay) {
    for (Date now = at(2023, 1, 20, 13); now < at(2024, 4, 2); now = now + 86400) {
        ASSERT_EQ(on(now), expected(now)) << now.secondsSince1970;
    }
}

TEST_F(CountdownDatesTest, areWorkedOutOnceADayAndThenFromWhereTheyStand) {
    on(at(2024, 2, 14, 9));
    calendar.additions = 0;
    for (int redraw = 0; redraw < 100; ++redraw) {
        on(at(2024, 2, 14, 10));
    }
    EXPECT_EQ(calendar.additions, 0);
    on(at(2024, 2, 15, 10));
    EXPECT_LE(calendar.additions, 1) << "not one for each week since 2018";
}

TEST_F(CountdownDatesTest, goBackWithTheClock) {
    on(at(2024, 2, 14));
    EXPECT_EQ(on(at(2021, 7, 1)), expected(at(2021, 7, 1)));
}

TEST_F(CountdownDatesTest, followTheTimeZone) {
    events = {event(at(2023, 1, 31, 23), CountdownRecurrence::monthly)};
    on(at(2024, 2, 14, 12));
    calendar.secondsEast = -7200;
    calendar.additions = 0;
    on(at(2024, 2, 15, 12));
    EXPECT_EQ(calendar.additions, 13) << "from the beginning";
}

TEST_F(CountdownDatesTest, areThoseOfOtherEventsOnceTheFormerAreForgotten) {
    on(at(2024, 2, 14));
    events.pop_back();
    events.front() = event(at(2020, 8, 1), CountdownRecurrence::yearly);
    dates.forget();
    EXPECT_EQ(on(at(2024, 2, 14)), expected(at(2024, 2, 14)));
}

} // namespace

} // namespace zeph
