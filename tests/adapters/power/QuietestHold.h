// SPDX-License-Identifier: MIT
#pragma once

#include "support/MainThreadWatch.h"

#include <limits>

namespace zeph {

/// The longest time for which `attempt` held the main thread, in the best of up to five attempts:
/// what else the machine does disturbs some of them, a call that waits disturbs all.
template <typename Attempt>
double quietestHoldMs(Attempt attempt) {
    double quietest = std::numeric_limits<double>::max();
    for (int round = 0; round < 5 && quietest >= 5; ++round) {
        MainThreadWatch watch;
        attempt(watch);
        quietest = std::min(quietest, watch.longestHoldMs());
    }
    return quietest;
}

} // namespace zeph
