// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Formatters.h"

#include <QByteArray>

#include <map>
#include <memory>
#include <tuple>

namespace zeph {

/// Formatters of wall times for one locale, made at first use. Not safe for use by two threads at
/// once.
class DateFormatCache {
public:
    explicit DateFormatCache(QByteArray locale);

    /// Absent for a pattern that the library refuses. `wallTime`: whole milliseconds since 1970.
    std::optional<QString> text(double wallTime, const QString &pattern,
                                const DayHalfSymbols &dayHalves);

private:
    struct Closer {
        void operator()(void **format) const;
    };
    using Format = std::unique_ptr<void *, Closer>;
    using Key = std::tuple<QString, QString, QString>; // pattern, am, pm

    Format make(const Key &key) const;

    QByteArray m_locale;
    std::map<Key, Format> m_formats;
};

} // namespace zeph
