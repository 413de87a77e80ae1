// SPDX-License-Identifier: MIT
#include "settings/CountdownEvent.h"

#include "ports/Calendar.h"

#include <optional>

namespace zeph {

namespace {

constexpr int mostSteps = 1000;

std::optional<CalendarUnit> step(CountdownRecurrence recurrence) {
    switch (recurrence) {
    case CountdownRecurrence::weekly:
        return CalendarUnit::weekOfYear;
    case CountdownRecurrence::monthly:
        return CalendarUnit::month;
    case CountdownRecurrence::yearly:
        return CalendarUnit::year;
    case CountdownRecurrence::none:
        break;
    }
    return std::nullopt;
}

} // namespace

Date CountdownEvent::effectiveDate(Date reference, const Calendar &calendar) const {
    return next({date}, calendar.startOfDay(reference), calendar).date;
}

CountdownOccurrence CountdownEvent::next(CountdownOccurrence occurrence, Date today,
                                         const Calendar &calendar) const {
    const auto unit = step(recurrence);
    while (unit && occurrence.date < today && occurrence.steps < mostSteps) {
        const auto next = calendar.adding(*unit, 1, occurrence.date);
        if (!next) {
            break;
        }
        occurrence = {*next, occurrence.steps + 1};
    }
    return occurrence;
}

} // namespace zeph
