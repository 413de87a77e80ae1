// SPDX-License-Identifier: MIT
#include "presentation/preferences/CountdownEvent.h"

#include "platform/Calendar.h"

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
    const auto unit = step(recurrence);
    if (!unit) {
        return date;
    }
    const Date today = calendar.startOfDay(reference);
    Date occurrence = date;
    for (int steps = 0; occurrence < today && steps < mostSteps; ++steps) {
        const auto next = calendar.adding(*unit, 1, occurrence);
        if (!next) {
            break;
        }
        occurrence = *next;
    }
    return occurrence;
}

} // namespace zeph
