// SPDX-License-Identifier: MIT
#include "settings/CountdownForm.h"

#include "ports/Formatters.h"
#include "settings/PreferenceCoding.h"
#include "settings/PreferencesStore.h"

using namespace Qt::StringLiterals;

namespace zeph {

bool CountdownForm::canAdd() const {
    return !title.trimmed().isEmpty();
}

bool CountdownForm::add(PreferencesStore &preferences) {
    if (!canAdd()) {
        return false;
    }
    auto events = preferences.countdowns();
    events.push_back({QUuid::createUuid(), title.trimmed(), date, recurrence});
    preferences.setCountdowns(std::move(events));
    title.clear();
    return true;
}

std::vector<CountdownRow> countdownRows(const std::vector<CountdownEvent> &events,
                                        const Formatters &formatters) {
    std::vector<CountdownRow> rows;
    rows.reserve(events.size());
    for (const CountdownEvent &event : events) {
        const bool isOnce = event.recurrence == CountdownRecurrence::none;
        rows.push_back({event.id, event.title, formatters.date(event.date, u"MMM d, y"_s),
                        isOnce ? QString() : coding::raw(event.recurrence)});
    }
    return rows;
}

std::optional<RemovedCountdown> removeCountdown(const QUuid &id, PreferencesStore &preferences) {
    auto events = preferences.countdowns();
    auto removed = takeOut(events, id);
    if (removed) {
        preferences.setCountdowns(std::move(events));
    }
    return removed;
}

void restoreCountdown(const RemovedCountdown &removed, PreferencesStore &preferences) {
    auto events = preferences.countdowns();
    if (placeOf(events, removed.record.id) == events.end()) {
        putBack(events, removed);
        preferences.setCountdowns(std::move(events));
    }
}

} // namespace zeph
