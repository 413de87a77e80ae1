// SPDX-License-Identifier: MIT
#pragma once

#include "base/FixedDecimals.h"

#include <QJsonValue>

#include <optional>

namespace zeph {

/// An amount in dollars as cents, halves away from zero. Absent for what is no number and for
/// amounts beyond 64 bits.
std::optional<qint64> usdToCents(const QJsonValue &value);

/// A number cut off towards zero. Absent for what is no number and for numbers beyond 64 bits.
std::optional<qint64> intFromJSON(const QJsonValue &value);

} // namespace zeph
