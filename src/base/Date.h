// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
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

/// How far two instants are apart, whichever comes first. By this the age of what was read is told:
/// a clock that was set back far makes it old too, where a difference below zero would keep it
/// fresh until the clock has caught up.
inline double secondsApart(Date one, Date other) {
    return std::abs(one - other);
}

/// Seconds from 1970 to 2001-01-01 00:00:00 UTC, the origin of dates in stored JSON.
inline constexpr double referenceDateSince1970 = 978307200.0;

} // namespace zeph
