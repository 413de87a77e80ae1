// SPDX-License-Identifier: MIT
#include "adapters/kernel/SystemClock.h"

#include <chrono>

namespace zeph {

Date SystemClock::now() const {
    const auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
    return {std::chrono::duration<double>(sinceEpoch).count()};
}

} // namespace zeph
