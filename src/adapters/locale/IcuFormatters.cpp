// SPDX-License-Identifier: MIT
#include "adapters/locale/IcuFormatters.h"

#include "adapters/locale/DateFormatCache.h"
#include "adapters/locale/NumberFormatCache.h"
#include "adapters/locale/UserLocale.h"
#include "adapters/locale/UserZone.h"

#include <QMutex>

#include <unicode/ucal.h>
#include <unicode/ulocdata.h>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// English words in the calendar that `locale` uses.
QByteArray englishInCalendarOf(const QByteArray &locale) {
    UErrorCode status = U_ZERO_ERROR;
    UCalendar *const calendar =
        ucal_open(u"Etc/UTC", -1, locale.constData(), UCAL_DEFAULT, &status);
    QByteArray english = "en_US";
    if (U_SUCCESS(status) != 0) {
        english.append("@calendar=").append(ucal_getType(calendar, &status));
    }
    ucal_close(calendar);
    return english;
}

bool isCurrencyCode(const QString &code) {
    return code.size() == 3 && std::all_of(code.begin(), code.end(), [](QChar letter) {
               return (letter >= u'A' && letter <= u'Z') || (letter >= u'a' && letter <= u'z');
           });
}

} // namespace

struct IcuFormatters::Cached {
    Cached(const QString &locale, const QString &zoneName)
        : numberLocale(localeOrUsers(locale, "LC_NUMERIC")),
          moneyLocale(localeOrUsers(locale, "LC_MONETARY")),
          measurementLocale(localeOrUsers(locale, "LC_MEASUREMENT")),
          zone(zoneName),
          dates(englishInCalendarOf(localeOrUsers(locale, "LC_TIME"))) {}

    NumberFormatUse money(const QString &code, NumberLocale locale, int minimum,
                          int maximum) const {
        return {.locale = locale == NumberLocale::enUS ? "en_US" : moneyLocale,
                .currency = code.toUpper(),
                .minimumFractionDigits = minimum,
                .maximumFractionDigits = maximum};
    }

    QByteArray numberLocale;
    QByteArray moneyLocale;
    QByteArray measurementLocale;
    QMutex mutex;
    UserZone zone;
    DateFormatCache dates;
    NumberFormatCache numbers;
};

IcuFormatters::IcuFormatters(const QString &locale, const QString &zone)
    : m_cached(std::make_unique<Cached>(locale, zone)) {}

IcuFormatters::~IcuFormatters() = default;

std::optional<QString> IcuFormatters::currency(double amount, const QString &code,
                                               NumberLocale locale, int minimumFractionDigits,
                                               int maximumFractionDigits) const {
    if (!isCurrencyCode(code) || !std::isfinite(amount)) {
        return std::nullopt;
    }
    const QMutexLocker lock(&m_cached->mutex);
    return m_cached->numbers.text(
        amount, m_cached->money(code, locale, minimumFractionDigits, maximumFractionDigits));
}

std::optional<QString> IcuFormatters::currencySymbol(const QString &code,
                                                     NumberLocale locale) const {
    if (!isCurrencyCode(code)) {
        return std::nullopt;
    }
    const QMutexLocker lock(&m_cached->mutex);
    return m_cached->numbers.currencySymbol(m_cached->money(code, locale, 0, 0));
}

std::optional<QString> IcuFormatters::decimal(qint64 number, NumberLocale locale) const {
    const QMutexLocker lock(&m_cached->mutex);
    const NumberFormatUse use{.locale =
                                  locale == NumberLocale::enUS ? "en_US" : m_cached->numberLocale};
    return m_cached->numbers.text(number, use);
}

QString IcuFormatters::date(Date date, const QString &pattern,
                            const DayHalfSymbols &dayHalves) const {
    const QMutexLocker lock(&m_cached->mutex);
    const double instant = std::floor(date.secondsSince1970 * 1000.0);
    const double wallTime = m_cached->zone.current().wallTime(instant);
    return m_cached->dates.text(wallTime, pattern, dayHalves).value_or(QString());
}

bool IcuFormatters::usesUSMeasurement() const {
    UErrorCode status = U_ZERO_ERROR;
    const UMeasurementSystem system =
        ulocdata_getMeasurementSystem(m_cached->measurementLocale.constData(), &status);
    return U_SUCCESS(status) != 0 && system == UMS_US;
}

} // namespace zeph
