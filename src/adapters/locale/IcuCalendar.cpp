// SPDX-License-Identifier: MIT
#include "adapters/locale/IcuCalendar.h"

#include "adapters/locale/CalendarHandle.h"
#include "adapters/locale/UserLocale.h"
#include "adapters/locale/UserZone.h"

#include <QMutex>

#include <cmath>
#include <cstdlib>

namespace zeph {

namespace {

constexpr double kDay = 86'400'000.0;

double millisecondsOf(Date date) {
    return std::floor(date.secondsSince1970 * 1000.0);
}

Date dateOf(double milliseconds) {
    return {milliseconds / 1000.0};
}

Date startOfDayIn(const ZoneOffsets &zone, Date date) {
    const double wallTime = zone.wallTime(millisecondsOf(date));
    return std::isfinite(wallTime) ? dateOf(zone.instant(std::floor(wallTime / kDay) * kDay))
                                   : date;
}

} // namespace

struct IcuCalendar::Cached {
    Cached(const QByteArray &locale, const QString &zoneName) : zone(zoneName), calendar(locale) {}

    /// Sets the calendar to the wall time at `date`; false when it can't hold it.
    bool setDate(Date date) {
        return calendar.setTime(zone.current().wallTime(millisecondsOf(date)));
    }

    /// The instant of the calendar's wall time.
    std::optional<Date> date() {
        const auto wallTime = calendar.time();
        return wallTime ? std::optional(dateOf(zone.current().instant(*wallTime))) : std::nullopt;
    }

    QMutex mutex; // held during every use of the others
    UserZone zone;
    CalendarHandle calendar;
};

IcuCalendar::IcuCalendar(const QString &locale, const QString &zone)
    : m_cached(std::make_unique<Cached>(localeOrUsers(locale, "LC_TIME"), zone)) {}

IcuCalendar::~IcuCalendar() = default;

DateComponents IcuCalendar::components(Date date) const {
    const QMutexLocker lock(&m_cached->mutex);
    m_cached->setDate(date);
    return m_cached->calendar.components();
}

Date IcuCalendar::startOfDay(Date date) const {
    const QMutexLocker lock(&m_cached->mutex);
    return startOfDayIn(m_cached->zone.current(), date);
}

std::optional<Date> IcuCalendar::startOfDay(Date date, const QString &zone) const {
    return isKnownZone(zone) ? std::optional(startOfDayIn(ZoneOffsets(zone), date)) : std::nullopt;
}

std::optional<Date> IcuCalendar::adding(CalendarUnit unit, int count, Date date) const {
    const QMutexLocker lock(&m_cached->mutex);
    if (!m_cached->setDate(date) || !m_cached->calendar.add(unit, count)) {
        return std::nullopt;
    }
    const double before = millisecondsOf(date);
    const auto wallTime = m_cached->calendar.time();
    // The difference is added to the argument, since the library cuts it to milliseconds.
    return wallTime
               ? std::optional(
                     date + (m_cached->zone.current().instant(*wallTime, before) - before) / 1000.0)
               : std::nullopt;
}

std::optional<DateInterval> IcuCalendar::interval(CalendarUnit unit, Date date) const {
    const QMutexLocker lock(&m_cached->mutex);
    if (!m_cached->setDate(date) || !m_cached->calendar.moveToStartOf(unit)) {
        return std::nullopt;
    }
    const auto start = m_cached->date();
    const auto end = m_cached->calendar.add(unit, 1) ? m_cached->date() : std::nullopt;
    return start && end ? std::optional(DateInterval{*start, *end}) : std::nullopt;
}

std::optional<int> IcuCalendar::dayOfYear(Date date) const {
    const QMutexLocker lock(&m_cached->mutex);
    return m_cached->setDate(date) ? std::optional(m_cached->calendar.dayOfYear()) : std::nullopt;
}

std::optional<int> IcuCalendar::daysBetween(Date from, Date to) const {
    const QMutexLocker lock(&m_cached->mutex);
    if (!m_cached->setDate(from)) {
        return std::nullopt;
    }
    const int first = m_cached->calendar.julianDay();
    return m_cached->setDate(to) ? std::optional(m_cached->calendar.julianDay() - first)
                                 : std::nullopt;
}

std::optional<Date> IcuCalendar::dateInUTC(const DateComponents &components) const {
    const QMutexLocker lock(&m_cached->mutex);
    const auto time =
        m_cached->calendar.setComponents(components) ? m_cached->calendar.time() : std::nullopt;
    return time ? std::optional(dateOf(*time)) : std::nullopt;
}

QString IcuCalendar::dayKey(Date date) const {
    const DateComponents fields = components(date);
    return QString::asprintf("%s%04d-%02d-%02d", fields.year < 0 ? "-" : "", std::abs(fields.year),
                             fields.month, fields.day);
}

} // namespace zeph
