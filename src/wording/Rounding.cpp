// SPDX-License-Identifier: MIT
#include "wording/Rounding.h"

#include <array>
#include <charconv>
#include <cmath>

namespace zeph {

void requireFinite(double value) {
    if (!std::isfinite(value)) {
        qFatal("A number to be shown is not finite: %g", value);
    }
}

qint64 truncated(double value) {
    constexpr double limit = 9223372036854775808.0; // 2 to the power of 63
    if (!(value >= -limit && value < limit)) {
        qFatal("A number to be shown is no 64-bit integer: %g", value);
    }
    return static_cast<qint64>(value);
}

qint64 rounded(double value) {
    return truncated(std::round(value));
}

QString oneDecimal(double value) {
    // Neither QString::number, which rounds ties up, nor printf, which writes the locale's comma.
    std::array<char, 400> buffer{};
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                       std::chars_format::fixed, 1);
    return QString::fromLatin1(buffer.data(), written.ptr - buffer.data());
}

} // namespace zeph
