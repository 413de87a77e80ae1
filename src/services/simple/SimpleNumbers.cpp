// SPDX-License-Identifier: MIT
#include "services/simple/SimpleNumbers.h"

#include "services/web/Json.h"

#include <cmath>

namespace zeph {

namespace {

/// `value` is whole. Absent rather than held at a limit: no figure is better than a wrong one.
std::optional<qint64> fitting(double value) {
    constexpr double limit = 0x1p63;
    return value >= -limit && value < limit ? std::optional(static_cast<qint64>(value))
                                            : std::nullopt;
}

} // namespace

std::optional<qint64> usdToCents(const QJsonValue &value) {
    const auto dollars = json::number(value);
    return dollars ? fitting(std::round(*dollars * 100)) : std::nullopt;
}

std::optional<qint64> intFromJSON(const QJsonValue &value) {
    if (auto whole = json::integer(value)) {
        return whole; // digits beyond those of a double are kept
    }
    const auto number = json::number(value);
    return number ? fitting(std::trunc(*number)) : std::nullopt;
}

} // namespace zeph
