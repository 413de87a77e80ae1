// SPDX-License-Identifier: MIT
#include "services/web/Saturating.h"

#include <gtest/gtest.h>

namespace zeph {

using saturating::largest;
using saturating::smallest;

TEST(Saturating, reckonsAsUsualWhatFits) {
    EXPECT_EQ(saturating::add(2, -5), -3);
    EXPECT_EQ(saturating::subtract(2, -5), 7);
    EXPECT_EQ(saturating::multiply(-4, 5), -20);
}

TEST(Saturating, endsAtTheLimitOnTheSideOfTheTrueResult) {
    EXPECT_EQ(saturating::add(largest, 1), largest);
    EXPECT_EQ(saturating::add(smallest, -1), smallest);
    EXPECT_EQ(saturating::subtract(smallest, 1), smallest);
    EXPECT_EQ(saturating::subtract(0, smallest), largest);
    EXPECT_EQ(saturating::multiply(largest, 2), largest);
    EXPECT_EQ(saturating::multiply(smallest, -1), largest);
    EXPECT_EQ(saturating::multiply(largest, -2), smallest);
}

TEST(Saturating, cutsOffTowardsZero) {
    EXPECT_EQ(saturating::truncated(2.9), 2);
    EXPECT_EQ(saturating::truncated(-2.9), -2);
    EXPECT_EQ(saturating::truncated(0x1p62), qint64(1) << 62);
}

TEST(Saturating, roundsHalvesAwayFromZero) {
    EXPECT_EQ(saturating::rounded(2.5), 3);
    EXPECT_EQ(saturating::rounded(-2.5), -3);
    EXPECT_EQ(saturating::rounded(2.4), 2);
}

TEST(Saturating, takesAnyDouble) {
    EXPECT_EQ(saturating::truncated(std::numeric_limits<double>::infinity()), largest);
    EXPECT_EQ(saturating::truncated(-std::numeric_limits<double>::infinity()), smallest);
    EXPECT_EQ(saturating::truncated(0x1p63), largest);
    EXPECT_EQ(saturating::truncated(-0x1p63), smallest);
    EXPECT_EQ(saturating::rounded(std::numeric_limits<double>::quiet_NaN()), 0);
}

} // namespace zeph
