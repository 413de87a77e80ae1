// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Calendar.h"

#include <QByteArray>

#include <memory>

namespace zeph {

/// One calendar object of the locale library with a wall time in it, in milliseconds since 1970; a
/// setter changes the wall time. It knows no time zone. Not safe for use by two threads at once.
class CalendarHandle {
public:
    /// Ends the process when the library has no data at all, since no day could be told then.
    explicit CalendarHandle(const QByteArray &locale);

    /// False for a time beyond what the calendar can hold.
    bool setTime(double milliseconds);
    /// Absent when the fields set make no time.
    std::optional<double> time() const;

    DateComponents components() const;
    bool setComponents(const DateComponents &components);
    int dayOfYear() const;
    /// A running number of the day.
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
