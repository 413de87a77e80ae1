// SPDX-License-Identifier: MIT
#include "widgets/BuiltInWidgets.h"

#include "model/AppState.h"
#include "ports/Calendar.h"
#include "settings/PreferencesStore.h"
#include "widgets/WidgetContext.h"
#include "widgets/WidgetRows.h"
#include "wording/FramingContext.h"

#include <algorithm>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

constexpr double keptAfterwards = 86400; // an event stays for a day after it has passed
constexpr std::size_t shownEvents = 6;

struct Occurrence {
    const CountdownEvent *event;
    Date date;
};

std::vector<Occurrence> nextOccurrences(const WidgetContext &context) {
    const Date now = *context.state.now;
    const auto &events = context.preferences.countdowns();
    const auto &dates = context.preferences.countdownDates(now, context.framing.calendar);
    std::vector<Occurrence> occurrences;
    for (std::size_t index = 0; index < events.size(); ++index) {
        if (dates[index].date > now - keptAfterwards) {
            occurrences.push_back({&events[index], dates[index].date});
        }
    }
    std::stable_sort(occurrences.begin(), occurrences.end(),
                     [](const Occurrence &a, const Occurrence &b) { return a.date < b.date; });
    occurrences.resize(std::min(occurrences.size(), shownEvents));
    return occurrences;
}

constexpr double farthest = 1e15; // seconds, some thirty million years

/// What is left until an occurrence today, `seconds` from now.
QString timeLeftToday(double seconds, CountdownRecurrence recurrence) {
    if (seconds < -60) {
        return recurrence == CountdownRecurrence::none ? u"done"_s : u"today!"_s;
    }
    if (seconds < 60) {
        return u"now"_s;
    }
    if (seconds < 3600) {
        return u"in %1m"_s.arg(static_cast<int>((seconds + 30) / 60));
    }
    // A date from an edited file can lie beyond every calendar, and beyond every integer too.
    return u"in %1h"_s.arg(static_cast<qint64>(std::min(seconds, farthest) / 3600));
}

QString timeLeft(const Occurrence &occurrence, Date now, const Calendar &calendar) {
    const int days = calendar.daysBetween(now, occurrence.date).value_or(0);
    if (days < 0) {
        return u"done"_s;
    }
    if (days == 0) {
        return timeLeftToday(occurrence.date - now, occurrence.event->recurrence);
    }
    return days == 1 ? u"tomorrow"_s : u"%1 days"_s.arg(days);
}

} // namespace

View countdownsWidget(const WidgetContext &context) {
    std::vector<MetricChip> chips;
    for (const Occurrence &occurrence : nextOccurrences(context)) {
        const QString left = timeLeft(occurrence, *context.state.now, context.framing.calendar);
        chips.push_back(
            {u"calendar.badge.clock"_s, setApart(occurrence.event->title) + u" · "_s + left});
    }
    if (chips.empty()) {
        return {};
    }
    return widgetRows(
        {sectionLabel(u"Counting down"_s, context.palette), chipGrid(chips, context.palette)});
}

} // namespace zeph
