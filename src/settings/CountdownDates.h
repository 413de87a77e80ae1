// SPDX-License-Identifier: MIT
#pragma once

#include "settings/CountdownEvent.h"

#include <optional>
#include <vector>

namespace zeph {

/// The effective dates of a list of events, cached for the day: an event that repeats takes a step
/// of the calendar for each time since it was made, and every redraw asks. Main thread only.
class CountdownDates {
public:
    /// The `effectiveDate` of each of `events`, in their order, valid until the next call. `events`
    /// are those of the last call, unless `forget` came in between.
    const std::vector<CountdownOccurrence> &
    on(Date reference, const std::vector<CountdownEvent> &events, const Calendar &calendar);

    /// The events are others now.
    void forget() { m_today.reset(); }

private:
    std::optional<Date> m_today; // the start of the day that the occurrences are of
    std::vector<CountdownOccurrence> m_occurrences;
};

} // namespace zeph
