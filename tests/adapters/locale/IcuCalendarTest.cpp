// SPDX-License-Identifier: MIT
#include "adapters/locale/IcuCalendar.h"
#include "support/DateOf.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <thread>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const IcuCalendar &berlin() {
    static const IcuCalendar calendar(u"de_DE"_s, u"Europe/Berlin"_s);
    return calendar;
}

std::string startOfDay(const char *zone, const char *iso) {
    const IcuCalendar calendar(u"en_US"_s, QString::fromLatin1(zone));
    return isoOf(calendar.startOfDay(dateOf(iso)));
}

std::string added(CalendarUnit unit, int count, const char *iso) {
    return isoOf(berlin().adding(unit, count, dateOf(iso)).value());
}

std::string spanned(const Calendar &calendar, CalendarUnit unit, const char *iso) {
    const DateInterval span = calendar.interval(unit, dateOf(iso)).value();
    return isoOf(span.start) + " " + isoOf(span.end);
}

} // namespace

TEST(IcuCalendar, readsTheFieldsInItsZone) {
    const DateComponents expected{2024, 1, 1, 0, 30, 15};
    EXPECT_EQ(berlin().components(dateOf("2023-12-31T23:30:15Z")), expected);
}

TEST(IcuCalendar, readsFieldsOfAFractionOfASecondBelowIt) {
    EXPECT_EQ(berlin().components(dateOf("2024-01-01T11:59:59.999Z")).second, 59);
    EXPECT_EQ(berlin().components({-0.5}).second, 59);
    EXPECT_EQ(berlin().dayKey(Date{-3600.25}), u"1969-12-31"_s);
}

TEST(IcuCalendar, writesTheDayKeyOfTheLocalDay) {
    EXPECT_EQ(berlin().dayKey(dateOf("2024-02-28T22:59:59Z")), u"2024-02-28"_s);
    EXPECT_EQ(berlin().dayKey(dateOf("2024-02-28T23:00:00Z")), u"2024-02-29"_s);
}

TEST(IcuCalendar, padsTheDayKeyWithZeros) {
    EXPECT_EQ(berlin().dayKey(dateOf("0987-03-10T12:00:00Z")), u"0987-03-05"_s); // old style
    EXPECT_EQ(berlin().dayKey(dateOf("2031-03-04T12:00:00Z")), u"2031-03-04"_s);
}

TEST(IcuCalendar, writesTheDayKeyInAsciiDigitsWhateverTheLocale) {
    for (const auto &locale : {u"ar_EG"_s, u"hi_IN@numbers=deva"_s, u"my_MM"_s}) {
        const IcuCalendar calendar(locale, u"Etc/UTC"_s);
        EXPECT_EQ(calendar.dayKey(dateOf("2024-07-05T12:00:00Z")), u"2024-07-05"_s);
    }
}

TEST(IcuCalendar, countsTheYearsOfTheLocalesOwnCalendar) {
    const Date noon = dateOf("2024-03-20T12:00:00Z");
    EXPECT_EQ(IcuCalendar(u"th_TH"_s, u"Etc/UTC"_s).dayKey(noon), u"2567-03-20"_s);
    EXPECT_EQ(IcuCalendar(u"fa_IR"_s, u"Etc/UTC"_s).dayKey(noon), u"1403-01-01"_s);
}

TEST(IcuCalendar, makesTheSameInstantFromTheFieldsOfAnyCalendar) {
    const Date noon = dateOf("2024-03-20T12:34:56Z");
    for (const auto &locale :
         {u"en_US"_s, u"th_TH"_s, u"fa_IR"_s, u"ar_SA"_s, u"he_IL@calendar=hebrew"_s}) {
        const IcuCalendar calendar(locale, u"Etc/UTC"_s);
        EXPECT_EQ(calendar.dateInUTC(calendar.components(noon)), noon) << locale.toStdString();
    }
}

TEST(IcuCalendar, readsComponentsAsUniversalTimeRegardlessOfItsZone) {
    EXPECT_EQ(berlin().dateInUTC({2024, 6, 1, 4, 43, 0}), dateOf("2024-06-01T04:43:00Z"));
}

TEST(IcuCalendar, startsTheDayAtLocalMidnight) {
    EXPECT_EQ(startOfDay("Europe/Berlin", "2024-07-01T12:00:00+02:00"),
              isoOf(dateOf("2024-07-01T00:00:00+02:00")));
    EXPECT_EQ(startOfDay("Europe/Berlin", "2024-07-01T00:00:00+02:00"),
              isoOf(dateOf("2024-07-01T00:00:00+02:00")));
    EXPECT_EQ(startOfDay("Europe/Berlin", "2024-06-30T23:59:59.999+02:00"),
              isoOf(dateOf("2024-06-30T00:00:00+02:00")));
}

TEST(IcuCalendar, startsTheDayAtTheFirstMomentWhereMidnightDoesNotExist) {
    EXPECT_EQ(startOfDay("America/Sao_Paulo", "2018-11-04T12:00:00-02:00"),
              isoOf(dateOf("2018-11-04T01:00:00-02:00")));
    EXPECT_EQ(startOfDay("America/Toronto", "1919-03-31T12:00:00-04:00"),
              isoOf(dateOf("1919-03-31T00:30:00-04:00")));
}

TEST(IcuCalendar, startsTheDayAtTheEarlierOfTwoMidnights) {
    // At one minute past midnight this zone went back by an hour.
    EXPECT_EQ(startOfDay("America/St_Johns", "2010-11-07T12:00:00-03:30"),
              isoOf(dateOf("2010-11-07T00:00:00-02:30")));
}

TEST(IcuCalendar, startsTheDayOfAnotherZone) {
    const Date evening = dateOf("2024-03-10T23:30:00Z"); // clocks went forward in New York
    const auto inTokyo = berlin().startOfDay(evening, u"Asia/Tokyo"_s);
    const auto inNewYork = berlin().startOfDay(evening, u"America/New_York"_s);
    EXPECT_EQ(isoOf(inTokyo.value()), "2024-03-10T15:00:00.000Z");
    EXPECT_EQ(isoOf(inNewYork.value()), "2024-03-10T05:00:00.000Z");
    EXPECT_EQ(isoOf(berlin().startOfDay(evening)), "2024-03-10T23:00:00.000Z");
}

TEST(IcuCalendar, startsNoDayOfAZoneThatIsNotKnown) {
    const Date noon = dateOf("2024-03-10T12:00:00Z");
    for (const auto &zone : {u""_s, u"Mars/Olympus"_s, u"../etc/passwd"_s, QString(4096, u'x')}) {
        EXPECT_EQ(berlin().startOfDay(noon, zone), std::nullopt) << qPrintable(zone);
    }
}

TEST(IcuCalendar, spansTheDaysOfAClockChangeWholly) {
    EXPECT_EQ(spanned(berlin(), CalendarUnit::day, "2024-03-31T12:00:00Z"),
              "2024-03-30T23:00:00.000Z 2024-03-31T22:00:00.000Z");
    EXPECT_EQ(spanned(berlin(), CalendarUnit::day, "2024-10-27T12:00:00Z"),
              "2024-10-26T22:00:00.000Z 2024-10-27T23:00:00.000Z");
}

TEST(IcuCalendar, endsADayWhereTheNextOneBeginsLate) {
    const IcuCalendar calendar(u"pt_BR"_s, u"America/Sao_Paulo"_s);
    EXPECT_EQ(spanned(calendar, CalendarUnit::day, "2018-11-03T12:00:00Z"),
              "2018-11-03T03:00:00.000Z 2018-11-04T03:00:00.000Z");
    EXPECT_EQ(spanned(calendar, CalendarUnit::day, "2018-11-04T12:00:00Z"),
              "2018-11-04T03:00:00.000Z 2018-11-05T02:00:00.000Z");
}

TEST(IcuCalendar, passesOverADayThatAZoneLeftOut) {
    const IcuCalendar calendar(u"en_US"_s, u"Pacific/Apia"_s);
    EXPECT_EQ(spanned(calendar, CalendarUnit::day, "2011-12-29T12:00:00-10:00"),
              "2011-12-29T10:00:00.000Z 2011-12-30T10:00:00.000Z");
    EXPECT_EQ(calendar.dayKey(dateOf("2011-12-30T10:00:00Z")), u"2011-12-31"_s);
}

TEST(IcuCalendar, spansTheWeekFromTheLocalesFirstDay) {
    const char *wednesday = "2024-05-15T12:00:00Z";
    EXPECT_EQ(spanned(IcuCalendar(u"de_DE"_s, u"Etc/UTC"_s), CalendarUnit::weekOfYear, wednesday),
              "2024-05-13T00:00:00.000Z 2024-05-20T00:00:00.000Z");
    EXPECT_EQ(spanned(IcuCalendar(u"en_US"_s, u"Etc/UTC"_s), CalendarUnit::weekOfYear, wednesday),
              "2024-05-12T00:00:00.000Z 2024-05-19T00:00:00.000Z");
    EXPECT_EQ(spanned(IcuCalendar(u"ar_EG"_s, u"Etc/UTC"_s), CalendarUnit::weekOfYear, wednesday),
              "2024-05-11T00:00:00.000Z 2024-05-18T00:00:00.000Z");
}

TEST(IcuCalendar, spansMonthsAndYearsAcrossClockChanges) {
    EXPECT_EQ(spanned(berlin(), CalendarUnit::month, "2024-03-31T22:30:00Z"),
              "2024-03-31T22:00:00.000Z 2024-04-30T22:00:00.000Z");
    EXPECT_EQ(spanned(berlin(), CalendarUnit::month, "2024-10-31T12:00:00Z"),
              "2024-09-30T22:00:00.000Z 2024-10-31T23:00:00.000Z");
    EXPECT_EQ(spanned(berlin(), CalendarUnit::year, "2024-12-31T22:59:59Z"),
              "2023-12-31T23:00:00.000Z 2024-12-31T23:00:00.000Z");
}

TEST(IcuCalendar, addsDaysKeepingTheLocalTime) {
    EXPECT_EQ(added(CalendarUnit::day, 1, "2024-03-30T09:15:00+01:00"),
              isoOf(dateOf("2024-03-31T09:15:00+02:00")));
    EXPECT_EQ(added(CalendarUnit::day, -1, "2024-10-27T09:15:00+01:00"),
              isoOf(dateOf("2024-10-26T09:15:00+02:00")));
    EXPECT_EQ(added(CalendarUnit::weekOfYear, 2, "2024-03-20T09:15:00+01:00"),
              isoOf(dateOf("2024-04-03T09:15:00+02:00")));
}

TEST(IcuCalendar, movesALocalTimeThatDoesNotExistToTheEndOfTheGap) {
    EXPECT_EQ(added(CalendarUnit::day, 1, "2024-03-30T02:30:00+01:00"),
              isoOf(dateOf("2024-03-31T03:00:00+02:00")));
    const IcuCalendar calendar(u"pt_BR"_s, u"America/Sao_Paulo"_s);
    EXPECT_EQ(calendar.adding(CalendarUnit::day, 1, dateOf("2018-11-03T00:00:00-03:00")),
              dateOf("2018-11-04T01:00:00-02:00"));
}

TEST(IcuCalendar, cutsTheDayToTheLengthOfTheMonth) {
    EXPECT_EQ(added(CalendarUnit::month, 1, "2024-01-31T12:00:00+01:00"),
              isoOf(dateOf("2024-02-29T12:00:00+01:00")));
    EXPECT_EQ(added(CalendarUnit::year, 1, "2024-02-29T12:00:00+01:00"),
              isoOf(dateOf("2025-02-28T12:00:00+01:00")));
    EXPECT_EQ(added(CalendarUnit::month, -2, "2024-04-30T12:00:00+02:00"),
              isoOf(dateOf("2024-02-29T12:00:00+01:00")));
}

TEST(IcuCalendar, keepsTheFractionOfASecondWhenAdding) {
    const Date date{1'700'000'000.0 + 1.0 / 3.0};
    const Date next = berlin().adding(CalendarUnit::day, 1, date).value();
    EXPECT_EQ(next.secondsSince1970, date.secondsSince1970 + 86400.0);
}

TEST(IcuCalendar, numbersTheDaysOfTheYear) {
    EXPECT_EQ(berlin().dayOfYear(dateOf("2024-12-31T12:00:00Z")), 366);
    EXPECT_EQ(berlin().dayOfYear(dateOf("2023-12-31T12:00:00Z")), 365);
    EXPECT_EQ(berlin().dayOfYear(dateOf("2023-12-31T23:00:00Z")), 1);
}

TEST(IcuCalendar, countsWholeCalendarDaysBetween) {
    const Date late = dateOf("2024-03-30T23:59:00+01:00");
    EXPECT_EQ(berlin().daysBetween(late, dateOf("2024-03-31T00:01:00+01:00")), 1);
    EXPECT_EQ(berlin().daysBetween(late, dateOf("2024-04-01T00:00:00+02:00")), 2);
    EXPECT_EQ(berlin().daysBetween(late, dateOf("2024-03-30T00:00:00+01:00")), 0);
    EXPECT_EQ(berlin().daysBetween(late, dateOf("2023-03-30T12:00:00+02:00")), -366);
}

TEST(IcuCalendar, holdsForFarPastAndFuture) {
    EXPECT_EQ(berlin().dayKey(dateOf("9999-12-31T12:00:00Z")), u"9999-12-31"_s);
    EXPECT_EQ(berlin().dayKey(dateOf("1800-01-01T12:00:00Z")), u"1800-01-01"_s);
    EXPECT_EQ(berlin().dayKey(Date{-63'000'000'000.0}), u"-0027-08-13"_s);
    const Date far = dateOf("2500-06-15T10:00:00Z");
    EXPECT_LE(berlin().startOfDay(far), far);
    EXPECT_EQ(berlin().components(berlin().startOfDay(far)).hour, 0);
}

TEST(IcuCalendar, answersAbsentForInstantsBeyondItsRange) {
    for (const double seconds : {std::numeric_limits<double>::infinity(),
                                 std::numeric_limits<double>::quiet_NaN(), 1e300, -1e300}) {
        const Date date{seconds};
        EXPECT_EQ(berlin().adding(CalendarUnit::day, 1, date), std::nullopt);
        EXPECT_FALSE(berlin().interval(CalendarUnit::month, date).has_value());
        EXPECT_EQ(berlin().dayOfYear(date), std::nullopt);
        EXPECT_EQ(berlin().daysBetween(Date{}, date), std::nullopt);
        EXPECT_EQ(berlin().daysBetween(date, Date{}), std::nullopt);
    }
    EXPECT_TRUE(std::isnan(berlin().startOfDay(Date{std::nan("")}).secondsSince1970));
}

TEST(IcuCalendar, readsAnUnknownZoneAsUniversalTime) {
    const IcuCalendar calendar(u"en_US"_s, u"Nowhere/Land"_s);
    EXPECT_EQ(calendar.components(dateOf("2024-07-01T12:00:00Z")).hour, 12);
}

TEST(IcuCalendar, servesSeveralThreadsAtOnce) {
    const IcuCalendar calendar(u"de_DE"_s, u"Europe/Berlin"_s);
    const auto agree = [&calendar](int firstDay) {
        for (int day = firstDay; day < 4000; day += 2) {
            const Date date{day * 86400.0 + 43200.0};
            const DateComponents fields = calendar.components(calendar.startOfDay(date));
            if (fields.hour != 0 || calendar.dayKey(date).right(2).toInt() != fields.day) {
                return false;
            }
        }
        return true;
    };
    bool even = false;
    std::thread other([&] { even = agree(0); });
    const bool odd = agree(1);
    other.join();
    EXPECT_TRUE(even);
    EXPECT_TRUE(odd);
}

} // namespace zeph
