// SPDX-License-Identifier: MIT
#include "widgets/BuiltInWidgets.h"

#include "model/AppState.h"
#include "ports/Formatters.h"
#include "settings/PreferencesStore.h"
#include "widgets/WidgetContext.h"
#include "widgets/WidgetRows.h"
#include "wording/FramingContext.h"
#include "wording/StatFraming.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

/// "{event} in {time left} · {time of day}". The time of day follows the clock preference, unlike
/// the meeting's.
QString eventText(const QString &event, Date time, const WidgetContext &context) {
    const auto minutesLeft = static_cast<qint64>((time - *context.state.now) / 60);
    const QString pattern = context.preferences.use24HourClock() ? u"HH:mm"_s : u"h:mm a"_s;
    return u"%1 in %2 · %3"_s.arg(event, StatFraming::shortDuration(minutesLeft),
                                  context.framing.formatters.date(time, pattern));
}

QString sunText(const WidgetContext &context) {
    const SolarInfo &solar = *context.state.solar;
    const Date now = *context.state.now;
    if (solar.sunset && *solar.sunset > now) {
        return eventText(u"Sunset"_s, *solar.sunset, context);
    }
    if (solar.sunrise && *solar.sunrise > now) {
        return eventText(u"Sunrise"_s, *solar.sunrise, context);
    }
    return solar.sunset ? u"The sun is down for the day"_s : u"Sunset will appear with location"_s;
}

} // namespace

View sunWidget(const WidgetContext &context) {
    return calmLine(u"sunset"_s, sunText(context), context.palette);
}

} // namespace zeph
