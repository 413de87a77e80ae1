// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChangePublisher.h"
#include "base/Coordinate.h"
#include "base/Date.h"
#include "sensing/ActivityMonitor.h"
#include "sensing/AmbientFeeds.h"
#include "sensing/AppUsageMonitor.h"
#include "sensing/InputMonitor.h"
#include "sensing/NetworkMonitor.h"
#include "sensing/SlowSensors.h"
#include "sensing/SystemLoadMonitor.h"

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

namespace zeph {

class AppState;
class LocationManager;
class NotificationCenter;
class RunLoopTimer;
class UsageStore;
struct Platform;

/// What a coordinator works with; everything outlives it.
struct CoordinatorContext {
    AppState &state;
    const Platform &platform;
    NotificationCenter &notifications;
    const PreferencesStore &preferences;
    UsageStore &usageStore;
    LocationManager &location;
    const Endpoints &endpoints;
    std::chrono::milliseconds refreshPeriod;
    /// Starts the refresh of all web accounts and returns.
    std::function<void()> refreshIntegrations;
};

/// The clock of the system: owns every monitor, drives them from five repeating timers and copies
/// their results into `AppState`. Main thread only; it has no stop, its end is the process's.
class SamplingCoordinator {
public:
    /// Builds the monitors, restores today and listens for positions. Starts nothing.
    explicit SamplingCoordinator(CoordinatorContext context);
    ~SamplingCoordinator();
    SamplingCoordinator(const SamplingCoordinator &) = delete;
    SamplingCoordinator &operator=(const SamplingCoordinator &) = delete;

    /// Starts the input stream where it is allowed, the timers, and one round of every tick.
    /// Called once.
    void start();

    /// Writes today to the usage store.
    void persist();

    /// Refreshes every family of web accounts.
    void fetchIntegrations() const;

    InputMonitor &input() { return m_input; }

private:
    void restoreToday();
    bool restoreTotals();
    void restoreLate();
    void scheduleTimers();
    void logAbsentSenses() const;
    void fastTick();
    void mediumTick();
    void slowTick();

    void preferencesChanged();

    bool isIdle() const;
    void publishMinute();
    void publishRhythm();
    void positionFound(const Coordinate &coordinate);
    void positionForgotten();
    void updateSolar();
    void followClock();

    CoordinatorContext m_context;
    AppUsageMonitor m_appUsage;
    InputMonitor m_input;
    ActivityMonitor m_activity;
    SlowSensors m_slowSensors;
    AmbientFeeds m_ambientFeeds;
    SystemLoadMonitor m_systemLoad;
    NetworkMonitor m_network;
    std::unique_ptr<RunLoopTimer> m_fastTimer;
    std::unique_ptr<RunLoopTimer> m_mediumTimer;
    std::unique_ptr<RunLoopTimer> m_slowTimer;
    std::unique_ptr<RunLoopTimer> m_persistTimer;
    std::unique_ptr<RunLoopTimer> m_stripeTimer; // all families, in spite of its name
    std::vector<Subscription> m_subscriptions;
    std::optional<QString> m_dayToRestore; // set while the totals stored of it have not been read
    Date m_lastTick;
    qint64 m_publishCounter = 0;
    qint64 m_lastPublishedMinute = 0;
};

} // namespace zeph
