// SPDX-License-Identifier: MIT
#include "adapters/session/x11/MappingOrder.h"

#include <gtest/gtest.h>

namespace zeph {

TEST(MappingOrder, whatCameLaterCoversWhatWasThereBefore) {
    EXPECT_TRUE(isMappedAfterAny({1, 2, 3}, {3}, {1}));
    EXPECT_TRUE(isMappedAfterAny({1, 2}, {2}, {1}));
    EXPECT_FALSE(isMappedAfterAny({1, 2, 3}, {1}, {3}));
}

TEST(MappingOrder, oneOfSeveralIsEnough) {
    EXPECT_TRUE(isMappedAfterAny({1, 2, 3, 4}, {1, 3}, {2, 4}));
    EXPECT_FALSE(isMappedAfterAny({1, 2, 3, 4}, {1, 2}, {3, 4}));
}

TEST(MappingOrder, whatIsNotMappedCoversNothing) {
    EXPECT_FALSE(isMappedAfterAny({1, 2}, {3}, {1}));
    EXPECT_FALSE(isMappedAfterAny({1, 2}, {2}, {3}));
    EXPECT_FALSE(isMappedAfterAny({}, {2}, {1}));
    EXPECT_FALSE(isMappedAfterAny({1, 2}, {}, {1}));
}

} // namespace zeph
