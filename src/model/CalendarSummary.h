// SPDX-License-Identifier: MIT
#pragma once

#include "base/Date.h"

#include <QString>

#include <optional>

namespace zeph {

/// What the calendar holds for the rest of today.
struct CalendarSummary {
    std::optional<Date> nextEventStart;
    std::optional<QString> nextEventTitle;
    qint64 eventsToday = 0;
    std::optional<qint64> minutesUntilNext;

    bool operator==(const CalendarSummary &) const = default;
};

} // namespace zeph
