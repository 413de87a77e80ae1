// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>
#include <QtNumeric>

#include <cmath>
#include <limits>

/// Arithmetic on figures that strangers send: what does not fit ends at the limit.
namespace zeph::saturating {

inline constexpr qint64 largest = std::numeric_limits<qint64>::max();
inline constexpr qint64 smallest = std::numeric_limits<qint64>::min();

inline qint64 add(qint64 a, qint64 b) {
    qint64 sum = 0;
    return qAddOverflow(a, b, &sum) ? (b < 0 ? smallest : largest) : sum;
}

inline qint64 subtract(qint64 a, qint64 b) {
    qint64 difference = 0;
    return qSubOverflow(a, b, &difference) ? (b < 0 ? largest : smallest) : difference;
}

inline qint64 multiply(qint64 a, qint64 b) {
    qint64 product = 0;
    return qMulOverflow(a, b, &product) ? ((a < 0) == (b < 0) ? largest : smallest) : product;
}

/// Towards zero; what is no number is 0.
inline qint64 truncated(double value) {
    if (std::isnan(value)) {
        return 0;
    }
    if (value >= 0x1p63) {
        return largest;
    }
    return value <= -0x1p63 ? smallest : static_cast<qint64>(value);
}

/// To the nearest whole number, halves away from zero.
inline qint64 rounded(double value) {
    return truncated(std::round(value));
}

} // namespace zeph::saturating
