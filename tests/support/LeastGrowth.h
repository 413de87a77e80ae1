// SPDX-License-Identifier: MIT
#pragma once

#include <malloc.h>

#include <algorithm>
#include <cstdint>
#include <limits>

namespace zeph {

/// Bytes on the heap that a round of work adds once buffers and caches have filled: rounds are run
/// until one adds less than `enough`, twenty at most, and the least growth is told. What leaks
/// grows in every round alike, and so never gets below. May be negative.
template <typename Work>
std::int64_t leastGrowth(std::int64_t enough, Work &&work) {
    auto least = std::numeric_limits<std::int64_t>::max();
    for (int round = 0; round < 20 && least >= enough; ++round) {
        const auto before = static_cast<std::int64_t>(mallinfo2().uordblks);
        work();
        least = std::min(least, static_cast<std::int64_t>(mallinfo2().uordblks) - before);
    }
    return least;
}

} // namespace zeph
