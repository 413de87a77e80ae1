// SPDX-License-Identifier: MIT
#include "settings/CountdownDates.h"

#include "ports/Calendar.h"

namespace zeph {

const std::vector<CountdownOccurrence> &
CountdownDates::on(Date reference, const std::vector<CountdownEvent> &events,
                   const Calendar &calendar) {
    const Date today = calendar.startOfDay(reference);
    if (m_today == today) {
        return m_occurrences;
    }
    // The steps go on from where they were, unless the clock went back or the time zone changed.
    const bool goesOn = m_today && *m_today < today && calendar.startOfDay(*m_today) == *m_today;
    if (!goesOn) {
        m_occurrences.clear();
        for (const CountdownEvent &event : events) {
            m_occurrences.push_back({event.date});
        }
    }
    for (std::size_t index = 0; index < events.size(); ++index) {
        m_occurrences[index] = events[index].next(m_occurrences[index], today, calendar);
    }
    m_today = today;
    return m_occurrences;
}

} // namespace zeph
