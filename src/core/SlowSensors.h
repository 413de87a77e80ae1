// SPDX-License-Identifier: MIT
#pragma once

#include "core/TaskLane.h"
#include "sensors/BatteryMonitor.h"
#include "sensors/CalendarMonitor.h"
#include "sensors/DesktopMonitor.h"
#include "sensors/DiskUptimeMonitor.h"
#include "sensors/FocusMonitor.h"
#include "sensors/RemindersMonitor.h"

#include <memory>

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

    /// One round: samples and publishes what has no widget of its own or whose widget is on.
    void sample();

    /// The part of a round that a change of the preferences brings forward. Asks the user for the
    /// reminders where that is undecided and their widget is on.
    void preferencesChanged();

private:
    void listenForLateWords();
    void publish();
    void publishDesktop();
    void publishLateDesktop();
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
    RemindersMonitor m_reminders;
    std::shared_ptr<const DeviceBatteryMonitor>
        m_deviceBattery;                   // shared with the samples under way
    TaskLane m_deviceSamples;              // a device may hang in the kernel
    std::shared_ptr<SlowSensors *> m_self; // ends with this object; late answers look for it
};

} // namespace zeph
