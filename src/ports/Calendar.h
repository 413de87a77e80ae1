// SPDX-License-Identifier: MIT
#pragma once

#include "base/Date.h"
#include "ports/Port.h"

#include <QString>

#include <optional>

namespace zeph {

enum class CalendarUnit { day, weekOfYear, month, year };

/// Fields of an instant in a calendar; months and days count from 1, hours from 0.
struct DateComponents {
    int year = 1970;
    int month = 1;
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;

    bool operator==(const DateComponents &) const = default;
};

/// A half-open span: `start` belongs to it, `end` does not.
struct DateInterval {
    Date start;
    Date end;
};

/// The user's calendar in the user's time zone. An operation that the calendar can't compute
/// answers absent.
class Calendar : public Port {
public:
    virtual DateComponents components(Date date) const = 0;
    virtual Date startOfDay(Date date) const = 0;

    /// The start of the day that `date` falls on in the zone of that name, such as
    /// "America/New_York"; absent for a zone that is not known.
    virtual std::optional<Date> startOfDay(Date date, const QString &zone) const = 0;

    /// Adds `count` units, keeping the local time of day; a day past the end of a month becomes
    /// its last day.
    virtual std::optional<Date> adding(CalendarUnit unit, int count, Date date) const = 0;

    /// The unit that holds `date`: its day, week, month or year.
    virtual std::optional<DateInterval> interval(CalendarUnit unit, Date date) const = 0;

    /// 1 on the first day of the calendar's year.
    virtual std::optional<int> dayOfYear(Date date) const = 0;

    /// Whole calendar days from the day of `from` to the day of `to`; negative when `to` is
    /// earlier.
    virtual std::optional<int> daysBetween(Date from, Date to) const = 0;

    /// The instant of `components` read in UTC rather than in the user's zone.
    virtual std::optional<Date> dateInUTC(const DateComponents &components) const = 0;

    /// The local day as "yyyy-MM-dd" in this calendar, with ASCII digits.
    virtual QString dayKey(Date date) const = 0;
};

} // namespace zeph
