// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <map>
#include <memory>
#include <optional>
#include <tuple>

namespace zeph {

/// What one number formatter of the locale library is made for. An empty `currency` is a plain
/// number with grouping.
struct NumberFormatUse {
    QByteArray locale = {};
    QString currency = {};
    int minimumFractionDigits = 0;
    int maximumFractionDigits = 0;

    bool operator<(const NumberFormatUse &other) const {
        return std::tie(locale, currency, minimumFractionDigits, maximumFractionDigits) <
               std::tie(other.locale, other.currency, other.minimumFractionDigits,
                        other.maximumFractionDigits);
    }
};

/// Number formatters made at first use. Not safe for use by two threads at once.
class NumberFormatCache {
public:
    std::optional<QString> text(double number, const NumberFormatUse &use);
    std::optional<QString> text(qint64 number, const NumberFormatUse &use);
    std::optional<QString> currencySymbol(const NumberFormatUse &use);

private:
    struct Closer {
        void operator()(void **format) const;
    };
    using Format = std::unique_ptr<void *, Closer>;

    /// Null when the library can't make one.
    void **format(const NumberFormatUse &use);
    static Format make(const NumberFormatUse &use);

    std::map<NumberFormatUse, Format> m_formats;
};

} // namespace zeph
