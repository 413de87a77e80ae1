// SPDX-License-Identifier: MIT
#pragma once

#include "base/TakenOut.h"
#include "settings/CountdownEvent.h"

#include <array>
#include <optional>
#include <vector>

namespace zeph {

class Formatters;
class PreferencesStore;

/// The form of a new event.
struct CountdownForm {
    QString title;
    Date date;
    CountdownRecurrence recurrence = CountdownRecurrence::none;

    /// With a title that is not blank.
    bool canAdd() const;

    /// Appends the event and empties the title; false when there is nothing to add.
    bool add(PreferencesStore &preferences);
};

/// The choices of the form in order.
inline constexpr std::array allRecurrences = {
    CountdownRecurrence::none, CountdownRecurrence::weekly, CountdownRecurrence::monthly,
    CountdownRecurrence::yearly};

/// A row of the list of events.
struct CountdownRow {
    QUuid id;
    QString title;
    QString date;       ///< "Jun 6, 2026"
    QString recurrence; ///< "yearly", empty for an event that does not come again

    bool operator==(const CountdownRow &) const = default;
};
std::vector<CountdownRow> countdownRows(const std::vector<CountdownEvent> &events,
                                        const Formatters &formatters);

using RemovedCountdown = TakenOut<CountdownEvent>;

/// Takes an event out; absent when it is not there.
std::optional<RemovedCountdown> removeCountdown(const QUuid &id, PreferencesStore &preferences);

/// Puts it back where it stood, unless it is there.
void restoreCountdown(const RemovedCountdown &removed, PreferencesStore &preferences);

} // namespace zeph
