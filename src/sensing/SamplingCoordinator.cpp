// SPDX-License-Identifier: MIT
#include "sensing/SamplingCoordinator.h"

#include "base/Log.h"
#include "base/NotificationCenter.h"
#include "history/UsageStore.h"
#include "model/AppState.h"
#include "ports/Clock.h"
#include "ports/DesktopFolder.h"
#include "ports/EventStore.h"
#include "ports/InputEvents.h"
#include "ports/Platform.h"
#include "ports/RunLoop.h"
#include "sensing/TickGap.h"
#include "services/ambient/LocationManager.h"
#include "services/ambient/SolarCalculator.h"
#include "settings/PreferencesStore.h"

#include <utility>

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
                m_context.platform.wifi),
      m_lastTick(m_context.platform.clock.now()) {
    restoreToday();
    m_subscriptions.push_back(m_context.location.onUpdate(
        [this](const Coordinate &coordinate) { positionFound(coordinate); }));
    m_subscriptions.push_back(m_context.location.onForgotten([this] { positionForgotten(); }));
    m_subscriptions.push_back(m_context.notifications.observe(
        notifications::zephIntegrationsChanged, [this] { fetchIntegrations(); }));
    m_subscriptions.push_back(m_context.notifications.observe(notifications::zephPreferencesChanged,
                                                              [this] { preferencesChanged(); }));
}

SamplingCoordinator::~SamplingCoordinator() = default;

void SamplingCoordinator::restoreToday() {
    m_context.state.rankedApps = m_appUsage.ranked();
    m_dayToRestore = m_context.usageStore.dayKey(m_context.platform.clock.now());
    restoreTotals();
}

/// Adds the totals stored of the day to be restored; false when there is nothing to add.
bool SamplingCoordinator::restoreTotals() {
    UsageStore &store = m_context.usageStore;
    const auto stored = store.loadDailyStats(*m_dayToRestore);
    if (!store.isKnown(UsageTable::totals, *m_dayToRestore)) {
        return false;
    }
    m_dayToRestore.reset();
    if (stored) {
        m_activity.restore(stored->first);
        m_input.restore(stored->second.totalKeystrokes, stored->second.mouseClicks,
                        stored->second.mouseDistanceMeters);
    }
    return stored.has_value();
}

/// Tries again what could not be read at the start.
void SamplingCoordinator::restoreLate() {
    m_appUsage.restore();
    if (m_dayToRestore != m_context.usageStore.dayKey(m_context.platform.clock.now())) {
        m_dayToRestore.reset(); // all read, or a day that is over
    } else if (restoreTotals()) {
        publishRhythm(); // what is saved is the rhythm as published
    }
}

void SamplingCoordinator::start() {
    logAbsentSenses();
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

/// For whoever asks why a widget stays empty.
void SamplingCoordinator::logAbsentSenses() const {
    if (!logSensing().isInfoEnabled()) {
        return;
    }
    const Platform &platform = m_context.platform;
    const auto tell = [](bool isThere, const char *what) {
        if (!isThere) {
            qCInfo(logSensing, "not there or not allowed: %s", what);
        }
    };
    const auto mayRead = [&platform](EntityType type) {
        return platform.eventStore.authorizationStatus(type) == EventAccess::fullAccess;
    };
    tell(platform.inputEvents.isTrusted(), "input timing");
    tell(mayRead(EntityType::event), "calendars");
    tell(mayRead(EntityType::reminder), "reminders");
    tell(platform.desktopFolder.url().has_value(), "a Desktop folder");
    tell(m_context.location.authorizationStatus() == LocationAuthorization::authorized,
         "the position");
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
    followClock();
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

/// The times of the sun are those of a day: after a jump of the clock they are of another one.
void SamplingCoordinator::followClock() {
    const Date now = m_context.platform.clock.now();
    const double gap = now - std::exchange(m_lastTick, now);
    if (gap != 0 && !isTickGap(gap)) {
        updateSolar();
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
    rhythm.isCountable = m_context.platform.inputEvents.canCountKeys();
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
    updateSolar();
    if (const auto coordinate = m_context.location.coordinate()) {
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
    updateSolar();
    m_ambientFeeds.fetchWeatherNow(coordinate);
}

void SamplingCoordinator::positionForgotten() {
    m_context.state.solar = SolarInfo();
    m_ambientFeeds.forgetPlace();
}

void SamplingCoordinator::updateSolar() {
    if (const auto coordinate = m_context.location.coordinate()) {
        m_context.state.solar = SolarCalculator::solar(*coordinate, m_context.platform.clock.now(),
                                                       m_context.platform.gregorian);
    }
}

void SamplingCoordinator::fetchIntegrations() const {
    m_context.refreshIntegrations();
}

void SamplingCoordinator::persist() {
    restoreLate();
    UsageStore &store = m_context.usageStore;
    const QString today = store.dayKey(m_context.platform.clock.now());
    store.saveAppUsage(m_appUsage.ranked(), today);
    // The rhythm as published, so that what was shown is what is kept.
    store.saveDailyStats(m_activity.summary(), *m_context.state.rhythm, today);
}

} // namespace zeph
