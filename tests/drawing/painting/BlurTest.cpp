// SPDX-License-Identifier: MIT
#include "drawing/painting/Blur.h"

#include <gtest/gtest.h>

namespace zeph {

TEST(Division, isExactForEverySumOfABlur) {
    for (int half = 0; half <= 256; ++half) {
        const int divisor = 2 * half + 1;
        const Division divided(divisor);
        for (int value = 0; value <= 256 * divisor; ++value) {
            ASSERT_EQ(divided(value), value / divisor) << value << " by " << divisor;
        }
    }
}

TEST(Division, isExactAroundWholeResultsForLargeDivisors) {
    for (int divisor = 1; divisor <= 65535; divisor += divisor < 1000 ? 1 : 97) {
        const Division divided(divisor);
        for (int whole = 1; whole <= 256; ++whole) {
            ASSERT_EQ(divided(whole * divisor), whole) << divisor;
            ASSERT_EQ(divided(whole * divisor - 1), whole - 1) << divisor;
        }
    }
}

} // namespace zeph
