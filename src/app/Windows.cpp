// SPDX-License-Identifier: MIT
#include "app/Windows.h"

#include "app/AppDelegate.h"
#include "app/SettingsTabs.h"
#include "drawing/painting/OwnFonts.h"
#include "host/PermissionsManager.h"
#include "ports/ApplicationPolicy.h"
#include "ports/LocationClient.h"
#include "ports/Platform.h"
#include "ports/RunLoop.h"
#include "ports/Screens.h"
#include "ports/ShellPorts.h"
#include "ui/onboarding/OnboardingWindow.h"
#include "ui/settings/SettingsWindow.h"

#include <utility>

namespace zeph {

namespace {

PermissionsContext permissionsOf(const WindowParts &parts, CalendarPermission &calendars) {
    const Platform &platform = parts.services.platform;
    return {.inputEvents = platform.inputEvents,
            .locationClient = &platform.locationClient,
            .makeLocationClient = parts.shell.makeLocationClient,
            .calendarPermission = calendars,
            .systemSettings = parts.shell.systemSettings,
            .runLoop = platform.runLoop,
            .activateApplication = [&policy = parts.shell.policy] { policy.activate(); }};
}

ui::SettingsContext contextOf(const WindowParts &parts, CalendarPermission &calendars,
                              const ServiceCheck &serviceCheck) {
    const AppServices &services = parts.services;
    const Platform &platform = services.platform;
    return {.preferences = services.preferences,
            .integrations = services.integrations,
            .state = parts.state,
            .defaults = platform.userDefaults,
            .notifications = services.notifications,
            .runLoop = platform.runLoop,
            .clock = platform.clock,
            .framing = parts.framing,
            .screens = platform.screens,
            .virtualDesktops = parts.shell.virtualDesktops,
            .appearance = parts.shell.appearance,
            .permissions = PermissionsManager::make(permissionsOf(parts, calendars)),
            .systemSettings = parts.shell.systemSettings,
            .launchAtLogin = parts.launchAtLogin,
            .desktopIcons = parts.desktopIcons,
            .updates = parts.shell.updates,
            .serviceCheck = serviceCheck,
            .wallpaper = parts.wallpaper,
            .painter = services.painter};
}

} // namespace

Windows::Windows(const WindowParts &parts)
    : m_parts(parts),
      m_calendarPermission(parts.services.platform.eventStore),
      m_serviceCheck(
          parts.services.platform.accountBackground,
          FetchTools{parts.webServices, parts.services.integrations, parts.services.keychain}),
      m_context(contextOf(m_parts, m_calendarPermission, m_serviceCheck)) {
    OwnFonts::takeAll(); // the windows have texts of the user's in them
}

Windows::~Windows() = default;

ui::SettingsWindow &Windows::settings() {
    if (!m_settings) {
        m_settings = std::make_unique<ui::SettingsWindow>(settingsTabs(m_context),
                                                          m_context.appearance, m_context.runLoop);
    }
    return *m_settings;
}

void Windows::openSettings() {
    ui::SettingsWindow &window = settings();
    if (const auto screen = m_context.screens.main()) {
        window.hugRightEdge(*screen);
    }
    window.showNormal(); // also when it was minimised
    m_parts.shell.policy.activate();
}

void Windows::openUpdates() {
    settings().showTab(updatesTab);
    openSettings();
}

void Windows::showOnboarding(OnboardingEvents events) {
    if (m_onboarding) {
        m_onboarding->present();
        m_parts.shell.policy.activate();
        return;
    }
    m_onboarding = std::make_unique<ui::OnboardingWindow>(m_context, std::move(events.onDone));
    m_onboarding->onClosed = std::move(events.onClosed);
    m_context.runLoop.post(m_work.whileAlive([this] {
        if (m_onboarding) {
            m_onboarding->present();
            m_parts.shell.policy.activate();
        }
    }));
}

void Windows::closeOnboarding() {
    if (!m_onboarding) {
        return;
    }
    m_onboarding->onClosed = {};
    m_onboarding->hide();
    m_onboarding.release()->deleteLater(); // it may be the one that calls
}

} // namespace zeph
