// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <array>
#include <charconv>

namespace zeph {

/// `value` with that many decimals, at most 9, and a point whatever the locale. Of two equally near
/// it takes the even last digit, as "%.2f" does and `QString::number` does not.
inline QString fixedDecimals(double value, int decimals) {
    std::array<char, 400> buffer{}; // the largest double has 309 digits before its point
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                       std::chars_format::fixed, decimals);
    return QString::fromLatin1(buffer.data(), written.ptr - buffer.data());
}

} // namespace zeph
