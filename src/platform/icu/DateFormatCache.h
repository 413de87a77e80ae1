// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Formatters.h"

#include <QByteArray>

#include <map>
#include <memory>
#include <tuple>

namespace zeph {

/// Date formatters of one locale, made at first use. Not safe for use by two threads at once.
class DateFormatCache {
public:
    DateFormatCache(QByteArray locale, QString zone);

    /// Forgets the formatters of the former zone.
    void setZone(const QString &zone);

    /// Absent for a pattern that the library refuses.
    std::optional<QString> text(Date date, const QString &pattern, const DayHalfSymbols &dayHalves);

private:
    struct Closer {
        void operator()(void **format) const;
    };
    using Format = std::unique_ptr<void *, Closer>;
    using Key = std::tuple<QString, QString, QString>; // pattern, am, pm

    Format make(const Key &key) const;

    QByteArray m_locale;
    QString m_zone;
    std::map<Key, Format> m_formats;
};

} // namespace zeph
