// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChangePublisher.h"
#include "base/WorkOwner.h"
#include "sensing/BatteryMonitor.h"
#include "sensing/CalendarMonitor.h"
#include "sensing/DesktopMonitor.h"
#include "sensing/DiskUptimeMonitor.h"
#include "sensing/FocusMonitor.h"
#include "sensing/RemindersMonitor.h"

#include <memory>
#include <vector>

namespace zeph {

class AppState;
class DeviceBatteryMonitor;
class PreferencesStore;
struct Platform;

/// What the machine and the day tell every 45 seconds. A sense that answers late, its service
/// having been slow or absent, is published when its word comes. Main thread only.
class SlowSensors {
public:
    /// Samples nothing yet. Everything given outlives it.
    SlowSensors(AppState &state, const Platform &platform, const PreferencesStore &preferences);
    ~SlowSensors();
    SlowSensors(const SlowSensors &) = delete;
    SlowSensors &operator=(const SlowSensors &) = delete;

    /// One round: samples and publishes all but what belongs to widgets that are off.
    void sample();

    /// The part of a round that a change of the preferences brings forward. Asks the user for the
    /// reminders where that is undecided and their widget is on.
    void preferencesChanged();

private:
    void listenForLateWords();
    void publish();
    void publishDesktop();
    void publishRenewedDesktop();
    void sampleReminders(bool requestIfNeeded);
    void readReminders();
    void sampleDevices();

    AppState &m_state;
    const Platform &m_platform;
    const PreferencesStore &m_preferences;
    BatteryMonitor m_battery;
    DiskUptimeMonitor m_diskUptime;
    FocusMonitor m_focus;
    CalendarMonitor m_calendar;
    DesktopMonitor m_desktop;
    Subscription m_eventsSubscription;
    RemindersMonitor m_reminders;
    std::shared_ptr<const DeviceBatteryMonitor> m_deviceBattery; // shared with samples under way
    WorkOwner m_answers;
    WorkOwner m_deviceSamples{2}; // a device may hang in the kernel
    Subscription m_desktopRenewals;
    std::vector<Subscription> m_subscriptions;
};

} // namespace zeph
