// SPDX-License-Identifier: MIT
#include "services/ambient/SolarCalculator.h"
#include "adapters/locale/IcuCalendar.h"
#include "support/DateOf.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr Coordinate svalbard{78.2, 15.6};

const IcuCalendar &utc() {
    static const IcuCalendar calendar(u"en_US"_s, u"Etc/UTC"_s);
    return calendar;
}

Date rise(const Coordinate &coordinate, const char *iso, const Calendar &calendar = utc()) {
    return SolarCalculator::sunEvent(true, coordinate, dateOf(iso), calendar).value();
}

/// A calendar that can't number days.
class NumberlessCalendar : public IcuCalendar {
public:
    NumberlessCalendar() : IcuCalendar(u"en_US"_s, u"Etc/UTC"_s) {}
    std::optional<int> dayOfYear(Date) const override { return std::nullopt; }
};

/// A calendar that can't add days.
class EndlessCalendar : public IcuCalendar {
public:
    EndlessCalendar() : IcuCalendar(u"en_US"_s, u"Pacific/Auckland"_s) {}
    std::optional<Date> adding(CalendarUnit, int, Date) const override { return std::nullopt; }
};

} // namespace

TEST(SolarCalculator, hasNoEventsInThePolarDay) {
    const SolarInfo info = SolarCalculator::solar(svalbard, dateOf("2024-06-25T12:00:00Z"), utc());
    EXPECT_EQ(info, SolarInfo{});
}

TEST(SolarCalculator, hasNoEventsInThePolarNight) {
    const SolarInfo info = SolarCalculator::solar(svalbard, dateOf("2024-12-21T12:00:00Z"), utc());
    EXPECT_EQ(info, SolarInfo{});
    const SolarInfo south =
        SolarCalculator::solar({-77.85, 166.67}, dateOf("2024-06-21T12:00:00Z"), utc());
    EXPECT_EQ(south, SolarInfo{});
}

TEST(SolarCalculator, hasEventsAtPolarPlacesAroundTheEquinox) {
    const SolarInfo info = SolarCalculator::solar(svalbard, dateOf("2024-03-20T12:00:00Z"), utc());
    EXPECT_TRUE(info.sunrise.has_value());
    EXPECT_TRUE(info.sunset.has_value());
    EXPECT_GT(info.daylightFraction, 0.9);
}

TEST(SolarCalculator, hasNoEventsAtThePolesNorAtNoPlace) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const Coordinate &coordinate :
         {Coordinate{90, 0}, Coordinate{-90, 0}, Coordinate{nan, 0}, Coordinate{0, nan}}) {
        const SolarInfo info =
            SolarCalculator::solar(coordinate, dateOf("2024-06-21T12:00:00Z"), utc());
        EXPECT_EQ(info, SolarInfo{});
    }
}

TEST(SolarCalculator, putsTheEventOnTheLocalDayAtItsUniversalHour) {
    // In Auckland the sun of June 21 rises at 07:34, which is 19:34 UTC of June 20.
    const IcuCalendar auckland(u"en_NZ"_s, u"Pacific/Auckland"_s);
    const Coordinate place{-36.848, 174.763};
    const Date event = rise(place, "2024-06-21T12:00:00+12:00", auckland);
    EXPECT_EQ(utc().dayKey(event), u"2024-06-21"_s);
    EXPECT_EQ(utc().components(event).hour, 19);
}

TEST(SolarCalculator, bringsAnEventEastOf150DegreesIntoTheLocalDay) {
    const IcuCalendar auckland(u"en_NZ"_s, u"Pacific/Auckland"_s);
    const Coordinate place{-36.848, 174.763};
    const Date noon = dateOf("2024-06-21T12:00:00+12:00");
    const SolarInfo info = SolarCalculator::solar(place, noon, auckland);
    EXPECT_EQ(auckland.dayKey(*info.sunrise), u"2024-06-21"_s);
    EXPECT_EQ(auckland.components(*info.sunrise).hour, 7);
    EXPECT_EQ(auckland.components(*info.sunset).hour, 17);
    EXPECT_LT(*info.sunrise, *info.sunset);
}

TEST(SolarCalculator, keepsTheEventAsItIsWhereTheDayHasNoEnd) {
    const EndlessCalendar calendar;
    const Coordinate place{-36.848, 174.763};
    const Date noon = dateOf("2024-06-21T12:00:00+12:00");
    EXPECT_EQ(SolarCalculator::solar(place, noon, calendar).sunrise,
              SolarCalculator::sunEvent(true, place, noon, calendar));
}

TEST(SolarCalculator, worksOnTheFirstAndTheLastDaysOfYears) {
    const Coordinate berlin{52.52, 13.405};
    for (const char *day : {"2023-01-01T12:00:00Z", "2023-12-31T12:00:00Z", "2024-01-01T12:00:00Z",
                            "2024-12-30T12:00:00Z", "2024-12-31T12:00:00Z"}) {
        const DateComponents event = utc().components(rise(berlin, day));
        EXPECT_EQ(event.hour, 7) << day;
        EXPECT_NEAR(event.minute, 16, 2) << day;
    }
}

TEST(SolarCalculator, countsFromTheFirstDayWhereTheCalendarCannotNumberDays) {
    const NumberlessCalendar numberless;
    const Coordinate berlin{52.52, 13.405};
    const Date summer = rise(berlin, "2024-06-21T12:00:00Z", numberless);
    const Date winter = rise(berlin, "2024-01-01T12:00:00Z");
    EXPECT_EQ(utc().components(summer).hour, utc().components(winter).hour);
    EXPECT_EQ(utc().components(summer).minute, utc().components(winter).minute);
    EXPECT_EQ(utc().dayKey(summer), u"2024-06-21"_s);
}

TEST(SolarCalculator, cutsToTheMinuteAndDoesNotRound) {
    // Worked out by hand, the sun of this day rises at 6.99914 hours and sets at 17.99910.
    const char *noon = "2023-04-10T12:00:00Z";
    EXPECT_EQ(rise({50, -25.42}, noon), dateOf("2023-04-10T06:59:00Z"));
    EXPECT_EQ(SolarCalculator::sunEvent(false, {50, 11.35}, dateOf(noon), utc()),
              dateOf("2023-04-10T17:59:00Z"));
}

TEST(SolarCalculator, countsTheSecondTermOfTheSunsCentre) {
    // Days on which it makes the difference of a minute.
    const auto set = [](const Coordinate &coordinate, const char *iso) {
        return SolarCalculator::sunEvent(false, coordinate, dateOf(iso), utc());
    };
    EXPECT_EQ(rise({60.2, 13.4}, "2023-08-23T12:00:00Z"), dateOf("2023-08-23T03:38:00Z"));
    EXPECT_EQ(rise({60.2, 13.4}, "2023-11-16T12:00:00Z"), dateOf("2023-11-16T07:06:00Z"));
    EXPECT_EQ(set({60.2, 13.4}, "2023-02-12T12:00:00Z"), dateOf("2023-02-12T15:48:00Z"));
    EXPECT_EQ(set({52.5, 13.4}, "2023-05-05T12:00:00Z"), dateOf("2023-05-05T18:38:00Z"));
}

TEST(SolarCalculator, bringsAnEventAtTheExactEndOfTheDayToItsBeginning) {
    const IcuCalendar tenHoursEast(u"en_US"_s, u"Etc/GMT-10"_s);
    const Coordinate place{0, 62.55};
    const Date noon = dateOf("2023-03-21T02:00:00Z");
    const Date midnight = dateOf("2023-03-21T14:00:00Z");
    ASSERT_EQ(SolarCalculator::sunEvent(false, place, noon, tenHoursEast), midnight);
    EXPECT_EQ(SolarCalculator::solar(place, noon, tenHoursEast).sunset, midnight - 86400);
}

TEST(SolarCalculator, movesByAMinuteForEachQuarterOfADegree) {
    Date former = rise({50, 10}, "2024-04-10T12:00:00Z");
    int steps = 0;
    for (int i = 1; i <= 100; ++i) {
        const Date next = rise({50, 10 + i * 0.01}, "2024-04-10T12:00:00Z");
        EXPECT_TRUE(former - next == 0 || former - next == 60);
        steps += former == next ? 0 : 1;
        former = next;
    }
    EXPECT_EQ(steps, 4);
}

TEST(SolarCalculator, hasNoDaylightAtSunriseAndSunset) {
    const Date sunrise{1000};
    const Date sunset{5000};
    EXPECT_EQ(SolarCalculator::daylightFraction(sunrise, sunrise, sunset), 0);
    EXPECT_NEAR(SolarCalculator::daylightFraction(sunset, sunrise, sunset), 0, 1e-12);
    EXPECT_EQ(SolarCalculator::daylightFraction(Date{999}, sunrise, sunset), 0);
    EXPECT_EQ(SolarCalculator::daylightFraction(Date{5001}, sunrise, sunset), 0);
}

TEST(SolarCalculator, hasFullDaylightAtTheExactMidpoint) {
    EXPECT_EQ(SolarCalculator::daylightFraction(Date{3000}, Date{1000}, Date{5000}), 1);
    EXPECT_NEAR(SolarCalculator::daylightFraction(Date{2000}, Date{1000}, Date{5000}),
                std::sqrt(0.5), 1e-12);
}

TEST(SolarCalculator, hasNoDaylightWithoutBothEventsInOrder) {
    const Date now{3000};
    EXPECT_EQ(SolarCalculator::daylightFraction(now, std::nullopt, Date{5000}), 0);
    EXPECT_EQ(SolarCalculator::daylightFraction(now, Date{1000}, std::nullopt), 0);
    EXPECT_EQ(SolarCalculator::daylightFraction(now, now, now), 0);
    EXPECT_EQ(SolarCalculator::daylightFraction(now, Date{5000}, Date{1000}), 0);
}

TEST(SolarCalculator, hasNoDaylightWhereTheSetComesBeforeTheRiseOfTheDay) {
    // Near the limit of the midnight sun the set of the day before falls after midnight.
    const IcuCalendar tromso(u"nb_NO"_s, u"Europe/Oslo"_s);
    const Coordinate place{69.65, 18.96};
    int reversed = 0;
    for (Date day = dateOf("2024-05-10T12:00:00Z"); day < dateOf("2024-05-20T00:00:00Z");
         day = day + 86400) {
        const SolarInfo info = SolarCalculator::solar(place, day, tromso);
        if (info.sunrise && info.sunset && *info.sunset < *info.sunrise) {
            EXPECT_EQ(info.daylightFraction, 0);
            ++reversed;
        }
    }
    EXPECT_GT(reversed, 0);
}

} // namespace zeph
