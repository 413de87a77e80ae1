// SPDX-License-Identifier: MIT
#include "adapters/locale/CalendarHandle.h"

#include <unicode/ucal.h>

#include <cmath>
#include <cstring>

namespace zeph {

namespace {

bool ok(UErrorCode status) {
    return U_SUCCESS(status) != 0;
}

UCalendar *open(const QByteArray &locale) {
    UErrorCode status = U_ZERO_ERROR;
    UCalendar *calendar = ucal_open(u"Etc/UTC", -1, locale.constData(), UCAL_DEFAULT, &status);
    if (!ok(status) || calendar == nullptr) {
        qFatal("No calendar data for the locale \"%s\": %s", locale.constData(),
               u_errorName(status));
    }
    return calendar;
}

/// Years of the common calendar run on below 1; other calendars count their own.
UCalendarDateFields yearFieldOf(const UCalendar *calendar) {
    UErrorCode status = U_ZERO_ERROR;
    const char *type = ucal_getType(calendar, &status);
    const bool common =
        ok(status) && (std::strcmp(type, "gregorian") == 0 || std::strcmp(type, "iso8601") == 0);
    return common ? UCAL_EXTENDED_YEAR : UCAL_YEAR;
}

UCalendarDateFields fieldOf(CalendarUnit unit) {
    switch (unit) {
    case CalendarUnit::weekOfYear:
        return UCAL_WEEK_OF_YEAR;
    case CalendarUnit::month:
        return UCAL_MONTH;
    case CalendarUnit::year:
        return UCAL_YEAR;
    case CalendarUnit::day:
        break;
    }
    return UCAL_DATE;
}

} // namespace

void CalendarHandle::Closer::operator()(void **calendar) const {
    ucal_close(calendar);
}

CalendarHandle::CalendarHandle(const QByteArray &locale)
    : m_calendar(open(locale)), m_yearField(yearFieldOf(m_calendar.get())) {}

bool CalendarHandle::setTime(double milliseconds) {
    UErrorCode status = U_ZERO_ERROR;
    const double whole = std::floor(milliseconds);
    ucal_setMillis(m_calendar.get(), std::isfinite(whole) ? whole : 0.0, &status);
    return ok(status) && ucal_getMillis(m_calendar.get(), &status) == whole;
}

std::optional<double> CalendarHandle::time() const {
    UErrorCode status = U_ZERO_ERROR;
    const double milliseconds = ucal_getMillis(m_calendar.get(), &status);
    return ok(status) ? std::optional(milliseconds) : std::nullopt;
}

int CalendarHandle::field(int name) const {
    UErrorCode status = U_ZERO_ERROR;
    return ucal_get(m_calendar.get(), static_cast<UCalendarDateFields>(name), &status);
}

DateComponents CalendarHandle::components() const {
    return {.year = field(m_yearField),
            .month = field(UCAL_MONTH) + 1,
            .day = field(UCAL_DATE),
            .hour = field(UCAL_HOUR_OF_DAY),
            .minute = field(UCAL_MINUTE),
            .second = field(UCAL_SECOND)};
}

bool CalendarHandle::setComponents(const DateComponents &components) {
    UCalendar *calendar = m_calendar.get();
    ucal_clear(calendar);
    ucal_set(calendar, static_cast<UCalendarDateFields>(m_yearField), components.year);
    ucal_set(calendar, UCAL_MONTH, components.month - 1);
    ucal_set(calendar, UCAL_DATE, components.day);
    ucal_set(calendar, UCAL_HOUR_OF_DAY, components.hour);
    ucal_set(calendar, UCAL_MINUTE, components.minute);
    ucal_set(calendar, UCAL_SECOND, components.second);
    return time().has_value();
}

int CalendarHandle::dayOfYear() const {
    return field(UCAL_DAY_OF_YEAR);
}

int CalendarHandle::julianDay() const {
    return field(UCAL_JULIAN_DAY);
}

bool CalendarHandle::moveToStartOfDay() {
    UCalendar *calendar = m_calendar.get();
    ucal_set(calendar, UCAL_HOUR_OF_DAY, 0);
    ucal_set(calendar, UCAL_MINUTE, 0);
    ucal_set(calendar, UCAL_SECOND, 0);
    ucal_set(calendar, UCAL_MILLISECOND, 0);
    return time().has_value();
}

bool CalendarHandle::moveToStartOf(CalendarUnit unit) {
    UCalendar *calendar = m_calendar.get();
    switch (unit) {
    case CalendarUnit::weekOfYear: {
        const int first = ucal_getAttribute(calendar, UCAL_FIRST_DAY_OF_WEEK);
        const int back = (field(UCAL_DAY_OF_WEEK) - first + 7) % 7;
        return add(CalendarUnit::day, -back) && moveToStartOfDay();
    }
    case CalendarUnit::month:
        ucal_set(calendar, UCAL_DATE, 1);
        break;
    case CalendarUnit::year:
        ucal_set(calendar, UCAL_DAY_OF_YEAR, 1);
        break;
    case CalendarUnit::day:
        break;
    }
    return moveToStartOfDay();
}

bool CalendarHandle::add(CalendarUnit unit, int count) {
    UErrorCode status = U_ZERO_ERROR;
    ucal_add(m_calendar.get(), fieldOf(unit), count, &status);
    return ok(status) && time().has_value();
}

} // namespace zeph
