// SPDX-License-Identifier: MIT
#include "core/SamplingCoordinator.h"

#include "ambient/LocationManager.h"
#include "ambient/SolarCalculator.h"
#include "core/AppState.h"
#include "core/NotificationCenter.h"
#include "history/UsageStore.h"
#include "platform/Clock.h"
#include "platform/InputEvents.h"
#include "platform/Platform.h"
#include "platform/RunLoop.h"
#include "presentation/preferences/PreferencesStore.h"

using namespace std::chrono_literals;

namespace zeph {

namespace {

constexpr auto fastPeriod = 1s;
constexpr auto mediumPeriod = 3s;
constexpr auto slowPeriod = 45s;
constexpr auto persistPeriod = 60s;
constexpr qint64 publishStride = 5; // fast ticks
constexpr double rateWindow = 60.0; // seconds
constexpr int averageDays = 14;

} // namespace

SamplingCoordinator::SamplingCoordinator(CoordinatorContext context)
    : m_context(std::move(context)),
      m_appUsage(m_context.platform.clock, m_context.platform.workspace, m_context.usageStore),
      m_input(m_context.platform.clock, m_context.platform.inputEvents),
      m_activity(m_context.platform.clock, m_context.platform.inputEvents, m_context.usageStore),
      m_slowSensors(m_context.state, m_context.platform, m_context.preferences),
      m_ambientFeeds(m_context.state, m_context.platform, m_context.preferences, m_context.location,
                     m_context.endpoints),
      m_systemLoad(m_context.platform.hostStatistics),
      m_network(m_context.platform.clock, m_context.platform.networkInterfaces,
                m_context.platform.wifi) {
    restoreToday();
    m_context.location.setOnUpdate(
        [this](const Coordinate &coordinate) { positionFound(coordinate); });
    m_subscriptions.push_back(m_context.notifications.observe(
        notifications::zephIntegrationsChanged, [this] { fetchIntegrations(); }));
    m_subscriptions.push_back(m_context.notifications.observe(notifications::zephPreferencesChanged,
                                                              [this] { preferencesChanged(); }));
}

SamplingCoordinator::~SamplingCoordinator() {
    m_context.location.setOnUpdate(nullptr);
}

void SamplingCoordinator::restoreToday() {
    m_context.state.rankedApps = m_appUsage.ranked();
    const UsageStore &store = m_context.usageStore;
    auto stored = store.loadDailyStats(store.dayKey(m_context.platform.clock.now()));
    if (!stored) {
        return;
    }
    m_activity.restore(stored->first);
    m_input.restore(stored->second.totalKeystrokes, stored->second.mouseClicks,
                    stored->second.mouseDistanceMeters);
}

void SamplingCoordinator::start() {
    if (m_context.platform.inputEvents.isTrusted()) {
        m_input.start();
    }
    scheduleTimers();
    fastTick();
    mediumTick();
    slowTick();
    if (m_context.location.authorizationStatus() == LocationAuthorization::authorized) {
        m_context.location.requestLocation();
    }
    fetchIntegrations();
}

void SamplingCoordinator::scheduleTimers() {
    RunLoop &loop = m_context.platform.runLoop;
    m_fastTimer = loop.repeat(fastPeriod, [this] { fastTick(); });
    m_mediumTimer = loop.repeat(mediumPeriod, [this] { mediumTick(); });
    m_slowTimer = loop.repeat(slowPeriod, [this] { slowTick(); });
    m_persistTimer = loop.repeat(persistPeriod, [this] { persist(); });
    m_stripeTimer = loop.repeat(m_context.refreshPeriod, [this] { fetchIntegrations(); });
}

bool SamplingCoordinator::isIdle() const {
    return m_context.platform.inputEvents.isQuietForMoreThan(ActivityMonitor::idleThreshold);
}

void SamplingCoordinator::fastTick() {
    m_appUsage.tick(isIdle());
    m_activity.tick(m_appUsage.currentBundleID(), m_appUsage.currentAppName());
    // The usage monitor alone counts switches, from 0 in every process.
    m_activity.setAppSwitches(m_appUsage.appSwitches());
    ++m_publishCounter;
    publishMinute();
    if (*m_context.state.currentAppName != m_appUsage.currentAppName()) {
        m_context.state.currentAppName = m_appUsage.currentAppName();
    }
    if (m_publishCounter == 1 || m_publishCounter % publishStride == 0) {
        publishRhythm();
        m_context.state.activity = m_activity.summary();
        m_context.state.rankedApps = m_appUsage.ranked();
    }
}

void SamplingCoordinator::publishMinute() {
    const Date now = m_context.platform.clock.now();
    const auto minute = static_cast<qint64>(now.secondsSince1970 / 60.0);
    if (minute != m_lastPublishedMinute) {
        m_lastPublishedMinute = minute;
        m_context.state.now = now;
    }
}

void SamplingCoordinator::publishRhythm() {
    InputRhythm rhythm;
    rhythm.keystrokesPerMinute = m_input.keystrokesPerMinute(rateWindow);
    rhythm.totalKeystrokes = m_input.totalKeystrokes();
    rhythm.mouseClicks = m_input.mouseClicks();
    rhythm.mouseDistanceMeters = m_input.mouseDistanceMeters();
    rhythm.dailyAverageKPM = m_context.usageStore.averageKPM(true, averageDays);
    m_context.state.rhythm = rhythm;
}

void SamplingCoordinator::mediumTick() {
    const BatteryInfo &battery = *m_context.state.battery;
    if (battery.isPresent && !battery.isPluggedIn && isIdle()) {
        return;
    }
    m_systemLoad.sampleCPU();
    m_systemLoad.sampleMemory();
    m_network.sample();
    m_context.state.load = m_systemLoad.load();
    m_context.state.network = m_network.throughput();
}

void SamplingCoordinator::slowTick() {
    // A permission granted while the program runs takes effect here.
    if (!m_input.hasTap() && m_context.platform.inputEvents.isTrusted()) {
        m_input.start();
    }
    m_slowSensors.sample();
    m_ambientFeeds.fetchDaily();
    m_ambientFeeds.maybeFetchWeather();
    if (const auto coordinate = m_context.location.coordinate()) {
        assignSolar(*coordinate);
        m_ambientFeeds.fetchAirQuality(*coordinate);
    }
}

void SamplingCoordinator::preferencesChanged() {
    m_slowSensors.preferencesChanged();
    if (m_context.preferences.isOn(WidgetKind::quote) && !*m_context.state.quote) {
        fetchIntegrations();
    }
}

void SamplingCoordinator::positionFound(const Coordinate &coordinate) {
    assignSolar(coordinate);
    m_ambientFeeds.fetchWeatherNow(coordinate);
}

void SamplingCoordinator::assignSolar(const Coordinate &coordinate) {
    m_context.state.solar = SolarCalculator::solar(coordinate, m_context.platform.clock.now(),
                                                   m_context.platform.calendar);
}

void SamplingCoordinator::fetchIntegrations() const {
    m_context.refreshIntegrations();
}

void SamplingCoordinator::persist() {
    UsageStore &store = m_context.usageStore;
    const QString today = store.dayKey(m_context.platform.clock.now());
    store.saveAppUsage(m_appUsage.ranked(), today);
    // The rhythm as published, so that what was shown is what is kept.
    store.saveDailyStats(m_activity.summary(), *m_context.state.rhythm, today);
}

} // namespace zeph
