// SPDX-License-Identifier: MIT
#include "adapters/locale/ZoneOffsets.h"
#include "adapters/locale/IcuCalendar.h"
#include "adapters/locale/IcuFormatters.h"
#include "support/DateOf.h"
#include "support/Environment.h"

#include <QFile>

#include <gmock/gmock.h>

#include <ctime>
#include <vector>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr std::time_t kDay = 86'400;
constexpr std::time_t k2000 = 946'684'800;
constexpr std::time_t k2038 = 2'145'916'800;

/// Milliseconds that the clock of the variable TZ is ahead, by the C library.
double offsetOfCLibrary(std::time_t instant) {
    std::tm fields{};
    localtime_r(&instant, &fields);
    return static_cast<double>(fields.tm_gmtoff) * 1000.0;
}

double offsetOf(const ZoneOffsets &zone, std::time_t instant) {
    const double milliseconds = static_cast<double>(instant) * 1000.0;
    return zone.wallTime(milliseconds) - milliseconds;
}

/// The first second of the new offset between two instants with different ones.
std::time_t changeBetween(std::time_t before, std::time_t after) {
    while (after - before > 1) {
        const std::time_t middle = before + (after - before) / 2;
        (offsetOfCLibrary(middle) == offsetOfCLibrary(before) ? before : after) = middle;
    }
    return after;
}

/// Every tenth day of 2000 to 2037, and both sides of every change in between.
std::vector<std::time_t> samples() {
    std::vector<std::time_t> found;
    for (std::time_t instant = k2000; instant < k2038; instant += 10 * kDay) {
        found.push_back(instant);
        if (offsetOfCLibrary(instant) != offsetOfCLibrary(instant + 10 * kDay)) {
            const std::time_t change = changeBetween(instant, instant + 10 * kDay);
            found.insert(found.end(), {change - 1, change, change + 3599, change + 7200});
        }
    }
    return found;
}

/// The zones of the system's own table.
QByteArrayList zonesOfTheSystem() {
    QFile table(u"/usr/share/zoneinfo/zone1970.tab"_s);
    QByteArrayList zones;
    if (table.open(QIODevice::ReadOnly)) {
        for (const QByteArray &line : table.readAll().split('\n')) {
            if (!line.startsWith('#') && line.count('\t') >= 2) {
                zones.append(line.split('\t').at(2).trimmed());
            }
        }
    }
    return zones;
}

} // namespace

TEST(ZoneOffsets, agreeWithTheCLibraryInEveryZoneOfTheSystem) {
    const QByteArrayList zones = zonesOfTheSystem();
    ASSERT_GT(zones.size(), 300);
    ScopedVariable tz("TZ", std::nullopt);
    for (const QByteArray &name : zones) {
        tz.set(name);
        tzset();
        const ZoneOffsets zone(QString::fromLatin1(name));
        for (const std::time_t instant : samples()) {
            ASSERT_EQ(offsetOf(zone, instant), offsetOfCLibrary(instant))
                << name.constData() << " at " << instant;
        }
    }
    tz.set(std::nullopt);
    tzset();
}

TEST(ZoneOffsets, leadBackFromTheWallTimeToItsFirstInstant) {
    const ZoneOffsets zone(u"Europe/Berlin"_s);
    const auto instant = [&zone](const char *wallTime) {
        return isoOf({zone.instant(dateOf(wallTime).secondsSince1970 * 1000.0) / 1000.0});
    };
    EXPECT_EQ(instant("2024-01-15T12:00:00Z"), "2024-01-15T11:00:00.000Z");
    EXPECT_EQ(instant("2024-03-31T02:30:00Z"), "2024-03-31T01:00:00.000Z"); // left out
    EXPECT_EQ(instant("2024-10-27T02:30:00Z"), "2024-10-27T00:30:00.000Z"); // comes twice
    EXPECT_EQ(instant("2024-10-27T03:00:00Z"), "2024-10-27T02:00:00.000Z");
}

TEST(ZoneOffsets, answerBeyondTheLargestInstantOfTheToolkit) {
    const ZoneOffsets berlin(u"Europe/Berlin"_s);
    for (const double far : {8.64e15, 8.7e15, 1e17, -8.7e15}) {
        EXPECT_NEAR(berlin.instant(far), far, 26 * 3'600'000.0);
        EXPECT_NEAR(berlin.wallTime(far), far, 26 * 3'600'000.0);
    }
}

TEST(ZoneOffsets, understandOffsetsAndRules) {
    EXPECT_EQ(offsetOf(ZoneOffsets(u"UTC+05:30"_s), k2000), 5.5 * 3'600'000);
    const ZoneOffsets rule(u"CET-1CEST,M3.5.0,M10.5.0/3"_s);
    EXPECT_EQ(offsetOf(rule, k2000), 3'600'000);
    EXPECT_EQ(offsetOf(rule, k2000 + 182 * kDay), 7'200'000);
    EXPECT_EQ(offsetOf(ZoneOffsets(u"Nowhere/Land"_s), k2000), 0);
    EXPECT_EQ(offsetOf(ZoneOffsets(QString()), k2000), 0);
}

TEST(ZoneOffsets, knowNamesAndAliasesButNoPathsAndRules) {
    for (const auto &name : {u"Europe/Berlin"_s, u"US/Eastern"_s, u"Etc/UTC"_s, u"EST5EDT"_s,
                             u"America/Argentina/Buenos_Aires"_s, u"America/Ciudad_Juarez"_s}) {
        EXPECT_TRUE(isKnownZone(name)) << qPrintable(name);
    }
    for (const auto &name : {u"PST"_s, u"../../../etc/localtime"_s, u"Europe"_s, u"Europe/"_s,
                             u"CET-1CEST,M3.5.0,M10.5.0/3"_s, u"tzdata.zi"_s}) {
        EXPECT_FALSE(isKnownZone(name)) << qPrintable(name);
    }
}

struct RecentRule {
    QString zone;
    const char *instant;
    QString wallTime;
};

TEST(IcuCalendar, followsTheRulesThatZonesWereGivenLately) {
    const RecentRule rules[] = {
        {u"Africa/Cairo"_s, "2025-07-01T12:00:00Z", u"15:00"_s},
        {u"America/Mexico_City"_s, "2025-07-01T12:00:00Z", u"06:00"_s},
        {u"America/Ciudad_Juarez"_s, "2025-01-15T12:00:00Z", u"05:00"_s},
        {u"America/Ojinaga"_s, "2025-01-15T12:00:00Z", u"06:00"_s},
        {u"America/Asuncion"_s, "2025-07-01T12:00:00Z", u"09:00"_s},
        {u"America/Nuuk"_s, "2025-01-15T12:00:00Z", u"10:00"_s},
        {u"Asia/Almaty"_s, "2025-01-15T12:00:00Z", u"17:00"_s},
        {u"Asia/Qostanay"_s, "2025-01-15T12:00:00Z", u"17:00"_s},
    };
    for (const auto &[zone, instant, wallTime] : rules) {
        const Date date = dateOf(instant);
        const IcuCalendar calendar(u"en_US"_s, zone);
        EXPECT_EQ(IcuFormatters(u"en_US"_s, zone).date(date, u"HH:mm"_s), wallTime)
            << qPrintable(zone);
        EXPECT_EQ(calendar.components(date).hour, wallTime.left(2).toInt()) << qPrintable(zone);
        const double midnight = date.secondsSince1970 - wallTime.left(2).toInt() * 3600;
        EXPECT_EQ(calendar.startOfDay(date).secondsSince1970, midnight) << qPrintable(zone);
        const auto abroad = IcuCalendar(u"en_US"_s, u"Etc/UTC"_s).startOfDay(date, zone);
        EXPECT_EQ(abroad.value().secondsSince1970, midnight) << qPrintable(zone);
    }
}

TEST(IcuCalendar, keepsTheSecondOfTwoLikeWallTimesWhenAdding) {
    const IcuCalendar calendar(u"de_DE"_s, u"Europe/Berlin"_s);
    const Date second = dateOf("2024-10-27T02:30:00+01:00");
    EXPECT_EQ(calendar.adding(CalendarUnit::day, 0, second), second);
    EXPECT_EQ(calendar.adding(CalendarUnit::day, -1, dateOf("2024-10-28T02:30:00+01:00")), second);
}

} // namespace zeph
