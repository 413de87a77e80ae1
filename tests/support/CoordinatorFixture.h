// SPDX-License-Identifier: MIT
#pragma once

#include "base/NotificationCenter.h"
#include "model/AppState.h"
#include "sensing/SamplingCoordinator.h"
#include "services/web/Endpoints.h"
#include "settings/PreferencesStore.h"
#include "support/FakePlatform.h"

#include <gtest/gtest.h>

#include <memory>

namespace zeph {

/// A coordinator over a machine of fakes.
class CoordinatorFixture : public testing::Test, public FakePlatform {
protected:
    using FakePlatform::FakePlatform;
    SamplingCoordinator &makeCoordinator(std::function<void()> refreshIntegrations = [] {}) {
        coordinator.reset();
        coordinator = std::make_unique<SamplingCoordinator>(CoordinatorContext{
            state, platform, notifications, preferences, *usageStore, location, endpoints,
            std::chrono::minutes(10), std::move(refreshIntegrations)});
        return *coordinator;
    }

    /// Ends the process, so to speak, and launches it again on the same file. Nothing may be
    /// subscribed to the state.
    void restart() {
        coordinator.reset();
        usageStore.reset();
        std::destroy_at(&state);
        std::construct_at(&state, clock.now());
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

    Endpoints endpoints;
    NotificationCenter notifications;
    PreferencesStore preferences{defaults, notifications, formatters};
    AppState state{clock.now()};
    std::unique_ptr<SamplingCoordinator> coordinator;
};

} // namespace zeph
