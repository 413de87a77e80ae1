// SPDX-License-Identifier: MIT
#include "adapters/locale/IcuCalendar.h"
#include "services/ambient/SolarCalculator.h"
#include "support/DateOf.h"

#include <QFile>
#include <QStringList>

#include <gmock/gmock.h>

#include <cmath>
#include <set>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// One line of almanac.csv.
struct AlmanacDay {
    QString place;
    Coordinate coordinate;
    QString zone;
    QString day;
    Date sunrise;
    Date sunset;
};

std::vector<AlmanacDay> almanac() {
    QFile file(QStringLiteral(ZEPH_ALMANAC));
    std::vector<AlmanacDay> days;
    if (!file.open(QIODevice::ReadOnly)) {
        return days;
    }
    for (const QString &line : QString::fromUtf8(file.readAll()).split(u'\n')) {
        const QStringList cells = line.split(u',');
        if (!line.startsWith(u'#') && cells.size() == 7) {
            days.push_back({cells[0],
                            {cells[1].toDouble(), cells[2].toDouble()},
                            cells[3],
                            cells[4],
                            dateOf(cells[5].toLatin1().constData()),
                            dateOf(cells[6].toLatin1().constData())});
        }
    }
    return days;
}

/// Some instant of the row's local day.
Date within(const AlmanacDay &row) {
    return row.sunrise + (row.sunset - row.sunrise) / 2;
}

} // namespace

TEST(Almanac, holdsEnoughPlacesAndDates) {
    std::set<QString> places;
    std::set<QString> days;
    for (const AlmanacDay &row : almanac()) {
        places.insert(row.place);
        days.insert(row.day);
        EXPECT_GT(row.sunset, row.sunrise);
    }
    EXPECT_GE(places.size(), 12U);
    EXPECT_GE(days.size(), 4U);
}

TEST(Almanac, agreesWithTheCalculatorToTwoMinutes) {
    for (const AlmanacDay &row : almanac()) {
        const IcuCalendar calendar(u"en_US"_s, row.zone);
        const SolarInfo info = SolarCalculator::solar(row.coordinate, within(row), calendar);
        const std::string where = (row.place + u' ' + row.day).toStdString();
        ASSERT_TRUE(info.sunrise && info.sunset) << where;
        // The calculator cuts seconds, which is 30 seconds early on average.
        const double half = 30;
        EXPECT_NEAR(row.sunrise - *info.sunrise, half, 120 + half) << where << " rise";
        EXPECT_NEAR(row.sunset - *info.sunset, half, 120 + half) << where << " set";
    }
}

TEST(Almanac, hasEveryEventInsideTheLocalDay) {
    for (const AlmanacDay &row : almanac()) {
        const IcuCalendar calendar(u"en_US"_s, row.zone);
        const SolarInfo info = SolarCalculator::solar(row.coordinate, within(row), calendar);
        EXPECT_EQ(calendar.dayKey(info.sunrise.value()), row.day) << row.place.toStdString();
        EXPECT_EQ(calendar.dayKey(info.sunset.value()), row.day) << row.place.toStdString();
    }
}

TEST(Almanac, givesTheSameEventsAtEveryMomentOfADay) {
    const AlmanacDay row = almanac().at(0);
    const IcuCalendar calendar(u"en_US"_s, row.zone);
    const Date start = calendar.startOfDay(within(row));
    const SolarInfo first = SolarCalculator::solar(row.coordinate, start, calendar);
    for (int halfHour = 0; halfHour < 48; ++halfHour) {
        const SolarInfo info =
            SolarCalculator::solar(row.coordinate, start + halfHour * 1800, calendar);
        EXPECT_EQ(info.sunrise, first.sunrise);
        EXPECT_EQ(info.sunset, first.sunset);
    }
}

} // namespace zeph
