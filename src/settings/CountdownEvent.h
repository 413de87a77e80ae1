// SPDX-License-Identifier: MIT
#pragma once

#include "base/Date.h"

#include <QString>
#include <QUuid>

namespace zeph {

class Calendar;

enum class CountdownRecurrence { none, weekly, monthly, yearly };

/// Where an event has come to by its repetitions.
struct CountdownOccurrence {
    Date date;
    int steps = 0; ///< since the event's own date
};

/// A day that the user looks forward to.
struct CountdownEvent {
    QUuid id;
    QString title;
    Date date;
    CountdownRecurrence recurrence = CountdownRecurrence::none;

    /// The occurrence that counts on the day of `reference`: `date` itself without recurrence,
    /// else the first one not before the start of that day. Each step adds to the previous
    /// result, so a monthly event of the 31st settles on shorter month ends; 1000 steps at most.
    Date effectiveDate(Date reference, const Calendar &calendar) const;

    /// The same for the day that begins at `today`, going on from an occurrence that counted on an
    /// earlier day; {`date`} is the one before all.
    CountdownOccurrence next(CountdownOccurrence occurrence, Date today,
                             const Calendar &calendar) const;

    bool operator==(const CountdownEvent &) const = default;
};

} // namespace zeph
