// SPDX-License-Identifier: MIT
#include "platform/icu/IcuCalendar.h"

#include "platform/icu/CalendarHandle.h"
#include "platform/icu/SystemZone.h"
#include "platform/icu/UserLocale.h"
#include "platform/icu/ZoneName.h"

#include <QMutex>

#include <cstdlib>
#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

struct IcuCalendar::Cached {
    Cached(QByteArray localeName, const QString &zone)
        : locale(std::move(localeName)),
          systemZone(zone.isEmpty() ? std::make_unique<SystemZone>() : nullptr),
          local(locale, systemZone ? systemZone->id() : zone),
          utc(locale, u"Etc/UTC"_s) {}

    /// The calendar of the zone that holds now. Call with `mutex` held.
    CalendarHandle &current() {
        if (systemZone && systemZone->refresh()) {
            local.setZone(systemZone->id());
        }
        return local;
    }

    QMutex mutex;
    const QByteArray locale;
    std::unique_ptr<SystemZone> systemZone; // null for a zone given by name
    CalendarHandle local;
    CalendarHandle utc;
};

IcuCalendar::IcuCalendar(const QString &locale, const QString &zone)
    : m_cached(std::make_unique<Cached>(localeOrUsers(locale, "LC_TIME"), zone)) {}

IcuCalendar::~IcuCalendar() = default;

DateComponents IcuCalendar::components(Date date) const {
    const QMutexLocker lock(&m_cached->mutex);
    CalendarHandle &calendar = m_cached->current();
    calendar.setDate(date);
    return calendar.components();
}

Date IcuCalendar::startOfDay(Date date) const {
    const QMutexLocker lock(&m_cached->mutex);
    CalendarHandle &calendar = m_cached->current();
    if (!calendar.setDate(date) || !calendar.moveToStartOfDay()) {
        return date;
    }
    return calendar.date().value_or(date);
}

std::optional<Date> IcuCalendar::startOfDay(Date date, const QString &zone) const {
    if (!isKnownZone(zone)) {
        return std::nullopt;
    }
    // Not kept: a foreign zone is asked for a few times an hour at most.
    CalendarHandle calendar(m_cached->locale, zone);
    if (!calendar.setDate(date) || !calendar.moveToStartOfDay()) {
        return date;
    }
    return calendar.date();
}

std::optional<Date> IcuCalendar::adding(CalendarUnit unit, int count, Date date) const {
    const QMutexLocker lock(&m_cached->mutex);
    CalendarHandle &calendar = m_cached->current();
    if (!calendar.setDate(date)) {
        return std::nullopt;
    }
    const auto before = calendar.date();
    if (!before || !calendar.add(unit, count)) {
        return std::nullopt;
    }
    const auto after = calendar.date();
    // The difference is added to the argument, since the library cuts it to milliseconds.
    return after ? std::optional(date + (*after - *before)) : std::nullopt;
}

std::optional<DateInterval> IcuCalendar::interval(CalendarUnit unit, Date date) const {
    const QMutexLocker lock(&m_cached->mutex);
    CalendarHandle &calendar = m_cached->current();
    if (!calendar.setDate(date) || !calendar.moveToStartOf(unit)) {
        return std::nullopt;
    }
    const auto start = calendar.date();
    // Once more to the start: a day that begins after midnight must not shift the end.
    if (!start || !calendar.add(unit, 1) || !calendar.moveToStartOfDay()) {
        return std::nullopt;
    }
    const auto end = calendar.date();
    return end ? std::optional(DateInterval{*start, *end}) : std::nullopt;
}

std::optional<int> IcuCalendar::dayOfYear(Date date) const {
    const QMutexLocker lock(&m_cached->mutex);
    CalendarHandle &calendar = m_cached->current();
    return calendar.setDate(date) ? std::optional(calendar.dayOfYear()) : std::nullopt;
}

std::optional<int> IcuCalendar::daysBetween(Date from, Date to) const {
    const QMutexLocker lock(&m_cached->mutex);
    CalendarHandle &calendar = m_cached->current();
    if (!calendar.setDate(from)) {
        return std::nullopt;
    }
    const int first = calendar.julianDay();
    return calendar.setDate(to) ? std::optional(calendar.julianDay() - first) : std::nullopt;
}

std::optional<Date> IcuCalendar::dateInUTC(const DateComponents &components) const {
    const QMutexLocker lock(&m_cached->mutex);
    return m_cached->utc.setComponents(components) ? m_cached->utc.date() : std::nullopt;
}

QString IcuCalendar::dayKey(Date date) const {
    const DateComponents fields = components(date);
    return QString::asprintf("%s%04d-%02d-%02d", fields.year < 0 ? "-" : "", std::abs(fields.year),
                             fields.month, fields.day);
}

} // namespace zeph
