// SPDX-License-Identifier: MIT
#pragma once

#include <compare>

namespace zeph {

/// An absolute instant, in seconds since 1970-01-01 00:00:00 UTC. Differences are seconds.
struct Date {
    double secondsSince1970 = 0;

    // NOLINTNEXTLINE(modernize-use-nullptr): clang-tidy 14 takes its literal 0 for a pointer
    auto operator<=>(const Date &) const = default;

    constexpr Date operator+(double seconds) const { return {secondsSince1970 + seconds}; }
    constexpr Date operator-(double seconds) const { return {secondsSince1970 - seconds}; }
    constexpr double operator-(Date other) const {
        return secondsSince1970 - other.secondsSince1970;
    }
};

/// Seconds from 1970 to 2001-01-01 00:00:00 UTC, the origin of dates in stored JSON.
inline constexpr double referenceDateSince1970 = 978307200.0;

} // namespace zeph
