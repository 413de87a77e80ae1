// SPDX-License-Identifier: MIT
#include "adapters/session/x11/LooksAfterResizing.h"

#include <gtest/gtest.h>

#include <vector>

namespace zeph {

namespace {

/// When the looks come, in milliseconds from the beginning.
std::vector<int> timesOf(LooksAfterResizing &looks) {
    std::vector<int> times;
    std::chrono::milliseconds now{0};
    while (const auto rest = looks.next()) {
        now += *rest;
        times.push_back(static_cast<int>(now.count()));
    }
    return times;
}

} // namespace

TEST(LooksAfterResizing, areSoonAndSomeSecondsLater) {
    LooksAfterResizing looks;
    looks.begin();
    EXPECT_EQ(timesOf(looks), (std::vector{100, 400, 1400, 5400}));
    EXPECT_EQ(looks.next(), std::nullopt) << "no polling";
}

TEST(LooksAfterResizing, allComeAgainAfterEachChange) {
    LooksAfterResizing looks;
    looks.begin();
    looks.next();
    looks.next();
    looks.begin();
    EXPECT_EQ(timesOf(looks).size(), 4U);
}

TEST(LooksAfterResizing, areNoneBeforeAnyChange) {
    LooksAfterResizing looks;
    EXPECT_EQ(looks.next(), std::nullopt);
}

} // namespace zeph
