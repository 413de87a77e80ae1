// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <chrono>

namespace zeph {

/// The length of the next burst, `last` being that of the one before: twice as long where that was
/// cut off, up to about a minute, as both sides insist; else the shortest.
constexpr std::chrono::milliseconds nextBurst(std::chrono::milliseconds last,
                                              std::chrono::milliseconds shortest, bool wasCutOff) {
    constexpr std::chrono::milliseconds longest{64000};
    return wasCutOff ? std::min(2 * last, longest) : shortest;
}

} // namespace zeph
