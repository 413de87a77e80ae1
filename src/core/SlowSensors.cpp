// SPDX-License-Identifier: MIT
#include "core/SlowSensors.h"

#include "core/AppState.h"
#include "platform/DesktopFolder.h"
#include "platform/EventStore.h"
#include "platform/FocusFile.h"
#include "platform/Platform.h"
#include "platform/PowerSources.h"
#include "platform/RunLoop.h"
#include "platform/TaskExecutor.h"
#include "presentation/preferences/PreferencesStore.h"
#include "sensors/DeviceBatteryMonitor.h"

namespace zeph {

SlowSensors::SlowSensors(AppState &state, const Platform &platform,
                         const PreferencesStore &preferences)
    : m_state(state),
      m_platform(platform),
      m_preferences(preferences),
      m_battery(platform.powerSources),
      m_diskUptime(platform.clock, platform.volume, platform.hostStatistics),
      m_focus(platform.focusFile),
      m_calendar(platform.clock, platform.calendar, platform.userDefaults, platform.eventStore),
      m_desktop(platform.desktopFolder),
      m_reminders(platform.clock, platform.calendar, platform.eventStore),
      m_deviceBattery(std::make_shared<const DeviceBatteryMonitor>(platform.accessories)),
      m_deviceSamples(platform.taskExecutor),
      m_self(std::make_shared<SlowSensors *>(this)) {
    listenForLateWords();
}

SlowSensors::~SlowSensors() {
    m_platform.powerSources.setSourcesHandler(nullptr);
    m_platform.focusFile.setContentsHandler(nullptr);
    m_platform.eventStore.setEventsHandler(nullptr);
    m_platform.desktopFolder.setEntriesHandler(nullptr);
}

void SlowSensors::listenForLateWords() {
    m_platform.powerSources.setSourcesHandler([this] {
        m_battery.sample();
        m_state.battery = m_battery.info();
    });
    m_platform.focusFile.setContentsHandler([this] {
        m_focus.sample();
        m_state.focus = m_focus.state();
    });
    m_platform.eventStore.setEventsHandler([this] {
        m_calendar.sample();
        m_state.calendar = m_calendar.summary();
    });
    m_platform.desktopFolder.setEntriesHandler([this] { publishLateDesktop(); });
}

void SlowSensors::sample() {
    m_battery.sample();
    m_diskUptime.sampleDisk();
    m_diskUptime.sampleUptime();
    m_focus.sample();
    m_calendar.sample();
    if (m_preferences.isOn(WidgetKind::desktop)) {
        m_desktop.sample();
    }
    publish();
    if (m_preferences.isOn(WidgetKind::reminders)) {
        sampleReminders(false);
    }
    if (m_preferences.isOn(WidgetKind::devices)) {
        sampleDevices();
    }
}

void SlowSensors::publish() {
    m_state.battery = m_battery.info();
    m_state.disk = m_diskUptime.disk();
    m_state.uptimeSeconds = m_diskUptime.uptimeSeconds();
    m_state.focus = m_focus.state();
    m_state.calendar = m_calendar.summary();
    // That of a widget switched off is the last one.
    m_state.desktop = m_desktop.summary();
}

void SlowSensors::preferencesChanged() {
    publishDesktop();
    if (m_preferences.isOn(WidgetKind::reminders)) {
        sampleReminders(true);
    }
}

void SlowSensors::publishDesktop() {
    if (m_preferences.isOn(WidgetKind::desktop)) {
        m_desktop.sample();
        m_state.desktop = m_desktop.summary();
    }
}

/// The folder tells of every listing, and a round has published most of them already.
void SlowSensors::publishLateDesktop() {
    if (!m_preferences.isOn(WidgetKind::desktop)) {
        return;
    }
    m_desktop.sample();
    if (*m_state.desktop != m_desktop.summary()) {
        m_state.desktop = m_desktop.summary();
    }
}

void SlowSensors::sampleReminders(bool requestIfNeeded) {
    if (m_platform.eventStore.authorizationStatus(EntityType::reminder) ==
        EventAccess::fullAccess) {
        readReminders();
        return;
    }
    if (!requestIfNeeded) {
        return;
    }
    m_reminders.requestAccess([weak = std::weak_ptr(m_self)](bool isGranted) {
        const auto self = weak.lock();
        if (isGranted && self) {
            (*self)->readReminders();
        }
    });
}

/// The monitor looks at the access itself.
void SlowSensors::readReminders() {
    m_reminders.sample([weak = std::weak_ptr(m_self)](const RemindersSummary &summary) {
        if (const auto self = weak.lock()) {
            (*self)->m_state.reminders = summary;
        }
    });
}

void SlowSensors::sampleDevices() {
    m_deviceSamples.enter(
        [monitor = m_deviceBattery, weak = std::weak_ptr(m_self), &loop = m_platform.runLoop] {
            loop.post([weak, devices = monitor->sample()] {
                if (const auto self = weak.lock()) {
                    (*self)->m_state.deviceBatteries = devices;
                    (*self)->m_deviceSamples.leave();
                }
            });
        });
}

} // namespace zeph
