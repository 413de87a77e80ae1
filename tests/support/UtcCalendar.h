// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Calendar.h"

#include <QDate>
#include <QDateTime>
#include <QTimeZone>

#include <cmath>

namespace zeph {

/// The proleptic Gregorian calendar in UTC, weeks from Monday: a calendar without surprises.
class UtcCalendar : public Calendar {
public:
    DateComponents components(Date date) const override {
        const QDate day = dayOf(date);
        const int seconds = static_cast<int>(std::floor(secondsIntoDay(date)));
        return {day.year(),     day.month(),       day.day(),
                seconds / 3600, seconds / 60 % 60, seconds % 60};
    }

    Date startOfDay(Date date) const override { return startOf(dayOf(date)); }

    std::optional<Date> startOfDay(Date date, const QString &zone) const override {
        const QTimeZone known(zone.toUtf8());
        if (!known.isValid()) {
            return std::nullopt;
        }
        const auto seconds = static_cast<qint64>(std::floor(date.secondsSince1970));
        const QDate day = QDateTime::fromSecsSinceEpoch(seconds, known).date();
        return Date{static_cast<double>(day.startOfDay(known).toSecsSinceEpoch())};
    }

    std::optional<Date> adding(CalendarUnit unit, int count, Date date) const override {
        const QDate day = dayOf(date);
        QDate moved;
        switch (unit) {
        case CalendarUnit::day:
            moved = day.addDays(count);
            break;
        case CalendarUnit::weekOfYear:
            moved = day.addDays(qint64(7) * count);
            break;
        case CalendarUnit::month:
            moved = day.addMonths(count);
            break;
        case CalendarUnit::year:
            moved = day.addYears(count);
            break;
        }
        if (!moved.isValid()) {
            return std::nullopt;
        }
        return startOf(moved) + secondsIntoDay(date);
    }

    std::optional<DateInterval> interval(CalendarUnit unit, Date date) const override {
        const QDate day = dayOf(date);
        switch (unit) {
        case CalendarUnit::day:
            return DateInterval{startOf(day), startOf(day.addDays(1))};
        case CalendarUnit::weekOfYear: {
            const QDate monday = day.addDays(1 - day.dayOfWeek());
            return DateInterval{startOf(monday), startOf(monday.addDays(7))};
        }
        case CalendarUnit::month: {
            const QDate first(day.year(), day.month(), 1);
            return DateInterval{startOf(first), startOf(first.addMonths(1))};
        }
        case CalendarUnit::year:
            break;
        }
        return DateInterval{startOf(QDate(day.year(), 1, 1)), startOf(QDate(day.year() + 1, 1, 1))};
    }

    std::optional<int> dayOfYear(Date date) const override { return dayOf(date).dayOfYear(); }

    std::optional<int> daysBetween(Date from, Date to) const override {
        return static_cast<int>(dayOf(from).daysTo(dayOf(to)));
    }

    std::optional<Date> dateInUTC(const DateComponents &fields) const override {
        const QDate day(fields.year, fields.month, fields.day);
        if (!day.isValid()) {
            return std::nullopt;
        }
        return startOf(day) + (fields.hour * 3600.0 + fields.minute * 60.0 + fields.second);
    }

    QString dayKey(Date date) const override { return dayOf(date).toString(Qt::ISODate); }

private:
    static constexpr double daySeconds = 86400;

    static QDate dayOf(Date date) {
        const auto days = static_cast<qint64>(std::floor(date.secondsSince1970 / daySeconds));
        return QDate(1970, 1, 1).addDays(days);
    }
    static Date startOf(QDate day) {
        return {static_cast<double>(QDate(1970, 1, 1).daysTo(day)) * daySeconds};
    }
    static double secondsIntoDay(Date date) { return date - startOf(dayOf(date)); }
};

} // namespace zeph
