// SPDX-License-Identifier: MIT
#include "wording/StatFraming.h"

#include "ports/Formatters.h"
#include "settings/PreferencesStore.h"
#include "wording/FramingContext.h"
#include "wording/Rounding.h"

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace zeph::StatFraming {

namespace {

struct Scale {
    double size;
    QChar suffix;
};

constexpr std::array scales = {Scale{1e9, u'B'}, Scale{1e6, u'M'}, Scale{1e3, u'K'}};

NumberLocale numberLocale(const FramingContext &context) {
    return context.preferences.useSystemNumberFormat() ? NumberLocale::current : NumberLocale::enUS;
}

QString compactMantissa(double mantissa) {
    if (mantissa >= 10) {
        return QString::number(rounded(mantissa));
    }
    QString text = oneDecimal(mantissa);
    if (text.endsWith(u".0"_s)) {
        text.chop(2);
    }
    return text;
}

} // namespace

std::optional<QString> compact(double value) {
    const double magnitude = std::abs(value);
    if (magnitude < 100000) {
        return std::nullopt;
    }
    for (const Scale &scale : scales) {
        // Just below the next unit none passes: "1000K" would be shown for 999,500 to 999,999.
        if (magnitude >= scale.size && magnitude / scale.size < 999.5) {
            const QString sign = value < 0 ? u"-"_s : QString();
            return sign + compactMantissa(magnitude / scale.size) + scale.suffix;
        }
    }
    return std::nullopt;
}

QString money(qint64 cents, const QString &currency, const FramingContext &context) {
    const QString code = currency.toUpper();
    const NumberLocale locale = numberLocale(context);
    const double amount = static_cast<double>(cents) / 100.0;
    if (const auto shortened = compact(amount)) {
        return context.formatters.currencySymbol(code, locale).value_or(u"$"_s) + *shortened;
    }
    const int decimals = cents % 100 == 0 ? 0 : 2;
    return context.formatters.currency(amount, code, locale, 0, decimals)
        .value_or(QString::number(cents));
}

QString count(qint64 n, const FramingContext &context) {
    if (const auto shortened = compact(static_cast<double>(n))) {
        return *shortened;
    }
    return context.formatters.decimal(n, numberLocale(context)).value_or(QString::number(n));
}

QString duration(double seconds) {
    const qint64 whole = truncated(seconds);
    const qint64 hours = whole / 3600;
    const qint64 rest = whole % 3600;
    const qint64 minutes = rest / 60;
    if (whole < 3600) {
        return rest < 60 ? u"%1s"_s.arg(whole) : u"%1m"_s.arg(minutes);
    }
    return rest < 60 ? u"%1h"_s.arg(hours) : u"%1h %2m"_s.arg(hours).arg(minutes);
}

QString shortDuration(qint64 minutes) {
    if (minutes <= 59) {
        return u"%1m"_s.arg(minutes);
    }
    const qint64 rest = minutes % 60;
    return rest == 0 ? u"%1h"_s.arg(minutes / 60) : u"%1h %2m"_s.arg(minutes / 60).arg(rest);
}

QString clockTime(Date date, const FramingContext &context) {
    return context.formatters.date(date, u"h:mm a"_s, {.am = u"am"_s, .pm = u"pm"_s});
}

QString distance(double meters, const FramingContext &context) {
    requireFinite(meters);
    if (context.preferences.unitSystem() == UnitSystem::metric) {
        return meters >= 1000 ? oneDecimal(meters / 1000) + u"km"_s
                              : u"%1m"_s.arg(truncated(meters));
    }
    const double feet = meters * 3.28084;
    return feet >= 5280 ? oneDecimal(feet / 5280) + u"mi"_s : u"%1ft"_s.arg(truncated(feet));
}

QString kilometers(double kilometers, const FramingContext &context) {
    const bool metric = context.preferences.unitSystem() == UnitSystem::metric;
    const qint64 whole = rounded(metric ? kilometers : kilometers * 0.621371);
    const QString number =
        context.formatters.decimal(whole, NumberLocale::current).value_or(QString::number(whole));
    return number + (metric ? u" km"_s : u" mi"_s);
}

} // namespace zeph::StatFraming
