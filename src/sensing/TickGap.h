// SPDX-License-Identifier: MIT
#pragma once

namespace zeph {

/// True when the seconds between two ticks may be charged. A gap of 10 s or more means that the
/// timers stood still (sleep), one at or below 0 that the clock was set.
constexpr bool isTickGap(double seconds) {
    return seconds > 0 && seconds < 10;
}

} // namespace zeph
