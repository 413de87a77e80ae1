// SPDX-License-Identifier: MIT
#include "services/ambient/NASAService.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace zeph {

// An aggregate of plain values has no operation that anyone could ask of it.
TEST(NASAService, canNotBeAskedForAnythingAndHoldsNothing) {
    static_assert(std::is_aggregate_v<NASAService> && std::is_copy_assignable_v<NASAService>);
    const NASAService service;
    EXPECT_FALSE(service.cached);
    EXPECT_FALSE(service.lastFetchDay);
}

} // namespace zeph
