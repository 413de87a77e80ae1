// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Calendar.h"

#include <memory>

namespace zeph {

/// Calendar arithmetic by the locale library, in the calendar that the locale uses. Cheap enough
/// for several calls a second; may be called from any thread. An instant that is not a number
/// has no fields: it reads as 1970-01-01.
class IcuCalendar : public Calendar {
public:
    /// An empty `locale` is the user's own (LC_ALL, LC_TIME, LANG). An empty `zone` is the
    /// machine's, followed when it changes; an unknown one counts as UTC.
    explicit IcuCalendar(const QString &locale = {}, const QString &zone = {});
    ~IcuCalendar() override;

    DateComponents components(Date date) const override;
    Date startOfDay(Date date) const override;
    std::optional<Date> startOfDay(Date date, const QString &zone) const override;
    std::optional<Date> adding(CalendarUnit unit, int count, Date date) const override;
    std::optional<DateInterval> interval(CalendarUnit unit, Date date) const override;
    std::optional<int> dayOfYear(Date date) const override;
    std::optional<int> daysBetween(Date from, Date to) const override;
    std::optional<Date> dateInUTC(const DateComponents &components) const override;
    QString dayKey(Date date) const override;

private:
    struct Cached;
    std::unique_ptr<Cached> m_cached;
};

} // namespace zeph
