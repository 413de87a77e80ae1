// SPDX-License-Identifier: MIT
#pragma once

#include "base/Date.h"

#include <QDateTime>
#include <QString>
#include <QTimeZone>

namespace zeph {

/// The instant of an ISO text with offset, such as "2018-11-04T12:00:00-02:00" or "...Z".
inline Date dateOf(const char *iso) {
    const auto parsed = QDateTime::fromString(QString::fromLatin1(iso), Qt::ISODateWithMs);
    Q_ASSERT_X(parsed.isValid() && parsed.timeSpec() != Qt::LocalTime, "dateOf", iso);
    return {static_cast<double>(parsed.toMSecsSinceEpoch()) / 1000.0};
}

/// The ISO text in UTC, for messages that a person can read.
inline std::string isoOf(Date date) {
    const auto milliseconds = static_cast<qint64>(date.secondsSince1970 * 1000.0);
    return QDateTime::fromMSecsSinceEpoch(milliseconds, Qt::UTC)
        .toString(Qt::ISODateWithMs)
        .toStdString();
}

} // namespace zeph
