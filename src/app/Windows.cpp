// SPDX-License-Identifier: MIT
#include "app/Windows.h"

#include "app/AppDelegate.h"
#include "app/SettingsTabs.h"
#include "drawing/painting/OwnFonts.h"
#include "host/PermissionsManager.h"
#include "host/ShownFolder.h"
#include "ports/ApplicationPolicy.h"
#include "ports/DesktopFolder.h"
#include "ports/LocationClient.h"
#include "ports/Platform.h"
#include "ports/RunLoop.h"
#include "ports/Screens.h"
#include "ports/ShellPorts.h"
#include "ui/controls/TipStyle.h"
#include "ui/onboarding/OnboardingWindow.h"
#include "ui/settings/SettingsWindow.h"

#include <QApplication>
#include <QDir>
#include <QFile>

#include <utility>

namespace zeph {

Windows::Windows(const WindowParts &parts, Consents &consents)
    : m_parts(parts),
      m_calendarPermission(parts.services.platform.eventStore),
      m_serviceCheck(
          parts.services.platform.accountBackground,
          FetchTools{parts.webServices, parts.services.integrations, parts.services.keychain}),
      m_context(makeContext(consents)) {
    OwnFonts::takeAll(); // the windows have texts of the user's in them
    ui::TipStyle::install();
}

Windows::~Windows() = default;

PermissionsContext Windows::permissions(Consents &consents) {
    const Platform &platform = m_parts.services.platform;
    const ShellPorts &shell = m_parts.shell;
    return {.inputEvents = platform.inputEvents,
            .locationClient = &platform.locationClient,
            .makeLocationClient = shell.makeLocationClient,
            .calendarPermission = m_calendarPermission,
            .systemSettings = shell.systemSettings,
            .runLoop = platform.runLoop,
            .activateApplication = m_work.whileAlive([this] { bringUsedToFront(); }),
            .consents = consents,
            .showPermissions = m_work.whileAlive([this] { showPermissions(); })};
}

ui::SettingsContext Windows::makeContext(Consents &consents) {
    const AppServices &services = m_parts.services;
    const Platform &platform = services.platform;
    return {.preferences = services.preferences,
            .integrations = services.integrations,
            .state = m_parts.state,
            .defaults = platform.userDefaults,
            .notifications = services.notifications,
            .runLoop = platform.runLoop,
            .clock = platform.clock,
            .framing = m_parts.framing,
            .screens = platform.screens,
            .windowServer = platform.windowServer,
            .virtualDesktops = platform.virtualDesktops,
            .appearance = m_parts.shell.appearance,
            .permissions = PermissionsManager::make(permissions(consents)),
            .systemSettings = m_parts.shell.systemSettings,
            .launchAtLogin = m_parts.launchAtLogin,
            .desktopIcons = m_parts.desktopIcons,
            .updates = m_parts.shell.updates,
            .serviceCheck = m_serviceCheck,
            .wallpaper = m_parts.wallpaper,
            .painter = services.painter,
            .desktopWallpaper = platform.desktopWallpaper};
}

/// Unless they are what the user is looking at: the window stays where it was put.
void Windows::showPermissions() {
    if (!settings().isVisible() || settings().currentTab() != permissionsTab) {
        settings().showTab(permissionsTab);
        openSettings();
    }
}

ui::SettingsWindow &Windows::settings() {
    if (!m_settings) {
        const Platform &platform = m_parts.services.platform;
        const auto folder = platform.desktopFolder.url();
        const QString shown =
            folder ? shownFolder(*folder, QFile::encodeName(QDir::homePath())) : QString();
        m_settings = std::make_unique<ui::SettingsWindow>(
            settingsTabs(m_context, shown, platform.background), m_context.appearance,
            m_context.runLoop);
    }
    return *m_settings;
}

void Windows::openSettings() {
    ui::SettingsWindow &window = settings();
    if (const auto screen = m_parts.shell.windowScreens.main()) {
        window.hugRightEdge(*screen);
    }
    window.showNormal(); // also when it was minimised
    bringToFront(window);
}

void Windows::bringToFront(QWidget &window) {
    m_broughtLast = &window;
    m_parts.shell.policy.activate(*window.windowHandle()); // it was shown, so there is one
}

/// The window in which the user just did something, before the system asks them about it.
void Windows::bringUsedToFront() {
    QWidget *const active = QApplication::activeWindow();
    QWidget *const used = active != nullptr ? active : m_broughtLast.data();
    if (used != nullptr && used->isVisible()) {
        m_parts.shell.policy.activate(*used->windowHandle());
    }
}

void Windows::openUpdates() {
    settings().showTab(updatesTab);
    openSettings();
}

void Windows::showOnboarding(OnboardingEvents events) {
    if (m_onboarding) {
        m_onboarding->present();
        bringToFront(*m_onboarding);
        return;
    }
    m_onboarding = std::make_unique<ui::OnboardingWindow>(m_context, std::move(events.onDone));
    m_onboarding->onClosed = std::move(events.onClosed);
    m_context.runLoop.post(m_work.whileAlive([this] {
        if (m_onboarding) {
            m_onboarding->present();
            bringToFront(*m_onboarding);
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
