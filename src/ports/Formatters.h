// SPDX-License-Identifier: MIT
#pragma once

#include "base/Date.h"
#include "ports/Port.h"

#include <QString>

#include <optional>

namespace zeph {

/// Which rules a number is written by: those of "en_US" or those of the user's locale.
enum class NumberLocale { enUS, current };

/// The two texts of the pattern letter "a".
struct DayHalfSymbols {
    QString am = QStringLiteral("AM");
    QString pm = QStringLiteral("PM");
};

/// The locale library's number and date texts. A value that can't be formatted answers absent.
class Formatters : public Port {
public:
    /// A currency text of `amount` (major units) in the code's symbol and the locale's form, with
    /// `minimumFractionDigits` to `maximumFractionDigits` decimals, halves rounded to even.
    virtual std::optional<QString> currency(double amount, const QString &code, NumberLocale locale,
                                            int minimumFractionDigits,
                                            int maximumFractionDigits) const = 0;

    /// The symbol of a three-letter currency code, such as "$" for USD in "en_US".
    virtual std::optional<QString> currencySymbol(const QString &code,
                                                  NumberLocale locale) const = 0;

    /// A whole number with the locale's grouping separators.
    virtual std::optional<QString> decimal(qint64 number, NumberLocale locale) const = 0;

    /// `date` by a Unicode date pattern with English words, in the user's calendar and zone.
    virtual QString date(Date date, const QString &pattern,
                         const DayHalfSymbols &dayHalves = {}) const = 0;

    /// True when the user's locale measures in the United States system.
    virtual bool usesUSMeasurement() const = 0;
};

} // namespace zeph
