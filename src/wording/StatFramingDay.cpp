// SPDX-License-Identifier: MIT
#include "wording/StatFraming.h"

#include "model/ActivitySummary.h"
#include "model/AppUsage.h"
#include "model/CalendarSummary.h"
#include "model/WeatherInfo.h"
#include "ports/Calendar.h"
#include "settings/PreferencesStore.h"
#include "wording/FramingContext.h"
#include "wording/Rounding.h"
#include "wording/WeatherDescription.h"

#include <cmath>

using namespace Qt::StringLiterals;

// Sentences about the person's day: what was done in it, what comes next, how it is outside.
// Thresholds of doubles are written so that NaN falls where "not above" sends it.
namespace zeph::StatFraming {

QString topAppHeadline(const std::optional<AppUsage> &topApp) {
    if (topApp && topApp->seconds > 60) {
        return u"You've lived in %1 today · %2"_s.arg(topApp->name, duration(topApp->seconds));
    }
    return u"Your day is just beginning"_s;
}

QString typing(double kpm, double average) {
    if (!(kpm > 5.0)) {
        return u"Hands resting"_s;
    }
    if (!(average > 5.0)) {
        return u"Typing %1 a minute"_s.arg(rounded(kpm));
    }
    const double delta = (kpm - average) / average;
    const qint64 percent = truncated(std::abs(delta) * 100);
    if (delta > 0.12) {
        return u"Typing %1% faster than your usual"_s.arg(percent);
    }
    if (delta < -0.12) {
        return u"Typing %1% slower than your usual · easing off"_s.arg(percent);
    }
    return u"Typing at your steady pace"_s;
}

QString switches(qint64 count) {
    const QString start = u"%1 app switches · "_s.arg(count);
    if (count < 40) {
        return start + u"deep and undistracted"_s;
    }
    if (count < 120) {
        return start + u"an even rhythm"_s;
    }
    return start + (count < 250 ? u"a busy, mixed day"_s : u"a fragmented day"_s);
}

QString active(const ActivitySummary &summary, double average) {
    const double seconds = summary.activeSeconds;
    if (!(seconds > 60)) {
        return u"Just getting started"_s;
    }
    if (average > 600) {
        const double delta = (seconds - average) / average;
        if (delta > 0.15) {
            return u"Active %1 · more than usual"_s.arg(duration(seconds));
        }
        if (delta < -0.15) {
            return u"Active %1 · a lighter day"_s.arg(duration(seconds));
        }
    }
    return u"Active %1 of %2 on"_s.arg(duration(seconds), duration(summary.machineOnSeconds));
}

QString weather(const std::optional<WeatherInfo> &weather, const FramingContext &context) {
    if (!weather) {
        return u"Weather will appear with location"_s;
    }
    const bool metric = context.preferences.unitSystem() == UnitSystem::metric;
    const double celsius = weather->temperatureC;
    const qint64 degrees = rounded(metric ? celsius : celsius * 9 / 5 + 32);
    const QString place = weather->locationName ? u" in "_s + *weather->locationName : QString();
    const QString description = describe(weather->code, weather->isDay).text.toLower();
    return u"%1°%2%3 · %4"_s.arg(QString::number(degrees), metric ? u"C"_s : u"F"_s, place,
                                 description);
}

QString nextMeeting(const CalendarSummary &calendar, const FramingContext &context) {
    if (!calendar.nextEventStart) {
        return calendar.eventsToday < 1 ? u"Nothing on your calendar"_s
                                        : u"No more meetings today"_s;
    }
    const QString at = clockTime(*calendar.nextEventStart, context);
    const auto minutes = calendar.minutesUntilNext;
    if (minutes && *minutes < 1) {
        return u"A meeting is starting now"_s;
    }
    // The title stays out while the meeting is near, on purpose.
    if (minutes && *minutes < 60) {
        return u"Next up in %1m, at %2"_s.arg(QString::number(*minutes), at);
    }
    if (calendar.nextEventTitle) {
        return u"Next: %1 at %2"_s.arg(*calendar.nextEventTitle, at);
    }
    return u"Next meeting at %1"_s.arg(at);
}

QString greeting(Date date, const FramingContext &context) {
    const int hour = context.calendar.components(date).hour;
    if (hour < 5 || hour >= 22) {
        return u"Still up"_s;
    }
    if (hour < 12) {
        return u"Good morning"_s;
    }
    return hour < 17 ? u"Good afternoon"_s : u"Good evening"_s;
}

} // namespace zeph::StatFraming
