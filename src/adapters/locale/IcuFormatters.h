// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Formatters.h"

#include <memory>

namespace zeph {

/// Number and date texts by the locale library. A formatter is made once for each use and kept;
/// may be called from any thread.
class IcuFormatters : public Formatters {
public:
    /// An empty `locale` is the user's own, category by category (LC_ALL, then LC_NUMERIC,
    /// LC_MONETARY, LC_TIME or LC_MEASUREMENT, then LANG). An empty `zone` is the machine's,
    /// followed when it changes.
    explicit IcuFormatters(const QString &locale = {}, const QString &zone = {});
    ~IcuFormatters() override;

    /// Absent for a code that is not three letters and for an amount that is not finite.
    std::optional<QString> currency(double amount, const QString &code, NumberLocale locale,
                                    int minimumFractionDigits,
                                    int maximumFractionDigits) const override;
    /// An unknown code of three letters is its own symbol.
    std::optional<QString> currencySymbol(const QString &code, NumberLocale locale) const override;
    std::optional<QString> decimal(qint64 number, NumberLocale locale) const override;
    /// Empty for a pattern that the library refuses.
    QString date(Date date, const QString &pattern,
                 const DayHalfSymbols &dayHalves = {}) const override;
    bool usesUSMeasurement() const override;

private:
    struct Cached;
    std::unique_ptr<Cached> m_cached;
};

} // namespace zeph
