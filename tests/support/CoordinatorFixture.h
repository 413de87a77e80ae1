// SPDX-License-Identifier: MIT
#pragma once

#include "core/AppState.h"
#include "core/SamplingCoordinator.h"
#include "support/FakePlatform.h"

#include <gtest/gtest.h>

namespace zeph {

/// A coordinator over a machine of fakes.
class CoordinatorFixture : public testing::Test, public FakePlatform {
protected:
    SamplingCoordinator &
    makeCoordinator(std::vector<std::function<void()>> integrationRefreshes = {}) {
        coordinator.reset();
        coordinator = std::make_unique<SamplingCoordinator>(CoordinatorContext{
            state, platform, *usageStore, location, std::move(integrationRefreshes)});
        return *coordinator;
    }

    /// Ends the process, so to speak, and launches it again on the same file.
    void restart() {
        coordinator.reset();
        usageStore.reset();
        usageStore = std::make_unique<UsageStore>(folder.path(), clock, calendar);
        makeCoordinator();
    }

    template <typename Action>
    int changesDuring(Action action) {
        int changes = 0;
        const Subscription counting = state.objectWillChange.subscribe([&] { ++changes; });
        action();
        return changes;
    }

    QString today() const { return usageStore->dayKey(clock.now()); }
    auto stored() const { return usageStore->loadDailyStats(today()); }

    AppState state{clock.now()};
    std::unique_ptr<SamplingCoordinator> coordinator;
};

} // namespace zeph
