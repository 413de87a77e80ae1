// SPDX-License-Identifier: MIT
#include "sensing/SlowSensors.h"

#include "base/Background.h"
#include "model/AppState.h"
#include "ports/EventStore.h"
#include "ports/FocusFile.h"
#include "ports/Platform.h"
#include "ports/PowerSources.h"
#include "sensing/DeviceBatteryMonitor.h"
#include "settings/PreferencesStore.h"

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
      m_desktop(platform.desktopFolder, platform.background),
      m_reminders(platform.clock, platform.calendar, platform.eventStore),
      m_deviceBattery(std::make_shared<const DeviceBatteryMonitor>(platform.accessories)),
      m_desktopRenewals(m_desktop.subscribe([this] { publishRenewedDesktop(); })) {
    listenForLateWords();
}

SlowSensors::~SlowSensors() = default;

void SlowSensors::listenForLateWords() {
    m_subscriptions.push_back(m_platform.powerSources.subscribe([this] {
        m_battery.sample();
        m_state.battery = m_battery.info();
    }));
    m_subscriptions.push_back(m_platform.focusFile.subscribe([this] {
        m_focus.sample();
        m_state.focus = m_focus.state();
    }));
    m_eventsSubscription = m_platform.eventStore.subscribe([this] {
        m_calendar.sample();
        m_state.calendar = m_calendar.summary();
    });
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

/// A round has published the summary as it was; most renewals bring the same one.
void SlowSensors::publishRenewedDesktop() {
    if (m_preferences.isOn(WidgetKind::desktop) && *m_state.desktop != m_desktop.summary()) {
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
    m_reminders.requestAccess(m_answers.whileAlive([this](bool isGranted) {
        if (isGranted) {
            readReminders();
        }
    }));
}

/// The monitor looks at the access itself.
void SlowSensors::readReminders() {
    m_reminders.sample(m_answers.whileAlive(
        [this](const RemindersSummary &summary) { m_state.reminders = summary; }));
}

void SlowSensors::sampleDevices() {
    m_platform.background.run(
        m_deviceSamples, [monitor = m_deviceBattery] { return monitor->sample(); },
        [this](const std::vector<DeviceBattery> &devices) { m_state.deviceBatteries = devices; });
}

} // namespace zeph
