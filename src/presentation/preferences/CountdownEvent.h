// SPDX-License-Identifier: MIT
#pragma once

#include "core/values/Date.h"

#include <QString>
#include <QUuid>

namespace zeph {

class Calendar;

enum class CountdownRecurrence { none, weekly, monthly, yearly };

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

    bool operator==(const CountdownEvent &) const = default;
};

} // namespace zeph
