// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonValue>
#include <QString>

#include <optional>

namespace zeph {

/// An amount in dollars as cents, halves away from zero. Absent for what is no number and for
/// amounts beyond 64 bits.
std::optional<qint64> usdToCents(const QJsonValue &value);

/// A number cut off towards zero. Absent for what is no number and for numbers beyond 64 bits.
std::optional<qint64> intFromJSON(const QJsonValue &value);

/// The printf form "%.{decimals}f" with a point whatever the locale: exact ties go to the even
/// digit.
QString fixedDecimals(double value, int decimals);

} // namespace zeph
