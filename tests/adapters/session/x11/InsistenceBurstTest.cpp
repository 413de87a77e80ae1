// SPDX-License-Identifier: MIT
#include "adapters/session/x11/InsistenceBurst.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace zeph {

TEST(InsistenceBurstTest, doublesWhileItIsCutOffUpToAboutAMinute) {
    std::chrono::milliseconds burst = 2s;
    for (const auto expected : {4s, 8s, 16s, 32s, 64s, 64s}) {
        burst = nextBurst(burst, 2s, true);
        EXPECT_EQ(burst, expected);
    }
}

TEST(InsistenceBurstTest, isShortAgainAfterOneThatWasEnough) {
    EXPECT_EQ(nextBurst(64s, 2s, false), 2s);
}

} // namespace zeph
