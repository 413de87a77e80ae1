// SPDX-License-Identifier: MIT
#pragma once

#include "base/Date.h"

#include <QStringList>

#include <optional>

namespace zeph {

/// Open reminders of today and before.
struct RemindersSummary {
    qint64 dueToday = 0;
    qint64 overdue = 0;
    QStringList topTitles;
    std::optional<Date> updated;

    bool operator==(const RemindersSummary &) const = default;
};

} // namespace zeph
