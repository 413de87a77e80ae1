// SPDX-License-Identifier: MIT
#include "adapters/kernel/RisingCounter.h"

#include <gtest/gtest.h>

namespace zeph {

TEST(RisingCounter, growsAsTheReadingsGrow) {
    RisingCounter counter;
    EXPECT_EQ(counter.next(5), 5U);
    EXPECT_EQ(counter.next(5), 5U);
    EXPECT_EQ(counter.next(9), 9U);
}

TEST(RisingCounter, standsWhenAReadingFallsAndGoesOnFromThere) {
    RisingCounter counter;
    EXPECT_EQ(counter.next(100), 100U);
    EXPECT_EQ(counter.next(97), 100U);
    EXPECT_EQ(counter.next(98), 101U);
}

TEST(RisingCounter, standsAtEveryFurtherFall) {
    RisingCounter counter;
    EXPECT_EQ(counter.next(100), 100U);
    EXPECT_EQ(counter.next(98), 100U);
    EXPECT_EQ(counter.next(97), 100U) << "fell twice in a row";
    EXPECT_EQ(counter.next(107), 110U);
    EXPECT_EQ(counter.next(101), 110U) << "fell again after it had grown";
    EXPECT_EQ(counter.next(102), 111U);
}

} // namespace zeph
