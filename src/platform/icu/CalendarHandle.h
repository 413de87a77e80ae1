// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Calendar.h"

#include <QByteArray>

#include <memory>

namespace zeph {

/// One calendar object of the locale library with an instant in it; a setter changes the instant.
/// Not safe for use by two threads at once.
class CalendarHandle {
public:
    /// Ends the process when the library has no data at all, since no day could be told then.
    CalendarHandle(const QByteArray &locale, const QString &zone);

    void setZone(const QString &zone);

    /// False for an instant beyond what the calendar can hold.
    bool setDate(Date date);
    /// Absent when the fields set make no instant.
    std::optional<Date> date() const;

    DateComponents components() const;
    bool setComponents(const DateComponents &components);
    int dayOfYear() const;
    /// A running number of the local day.
    int julianDay() const;

    bool moveToStartOfDay();
    /// Moves to the first moment of the day, week, month or year.
    bool moveToStartOf(CalendarUnit unit);
    bool add(CalendarUnit unit, int count);

private:
    struct Closer {
        void operator()(void **calendar) const;
    };

    int field(int name) const;

    std::unique_ptr<void *, Closer> m_calendar;
    int m_yearField = 0;
};

} // namespace zeph
