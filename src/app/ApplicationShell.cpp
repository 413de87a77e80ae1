// SPDX-License-Identifier: MIT
#include "app/ApplicationShell.h"

#include "host/ApplicationWindows.h"
#include "host/MenuBarController.h"
#include "ports/ApplicationPolicy.h"
#include "ports/DesktopShell.h"
#include "ports/InputEvents.h"
#include "ports/ShellPorts.h"
#include "ports/UpdateFramework.h"
#include "ports/UserDefaults.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const QString onboardedKey = u"zeph.onboarded"_s;
const QString didSetDefaultKey = u"zeph.launchAtLogin.didSetDefault"_s;
const QString hideIconsKey = u"zeph.desktop.hideIcons"_s;

// Some sessions start their desktop program anew whenever it ends, and it ends by our hiding.
constexpr int mostLaterTries = 5;

} // namespace

ApplicationShell::ApplicationShell(ShellContext context)
    : m_context(std::move(context)),
      m_launchAtLogin(m_context.ports.loginItem),
      m_desktopIcons(m_context.ports.desktopShell, m_context.defaults, m_context.background) {}

ApplicationShell::~ApplicationShell() = default;

void ApplicationShell::launch() {
    m_context.ports.policy.setActivationPolicy(isOnboarded() ? ActivationPolicy::accessory
                                                             : ActivationPolicy::regular);
    m_menuBar = std::make_unique<MenuBarController>(
        m_context.ports.statusBar, MenuActions{.openSettings = [this] { openSettings(); },
                                               .checkForUpdates = [this] { checkForUpdates(); },
                                               .quit = [this] { quit(); }});
    m_iconDrawers = m_context.ports.desktopShell.subscribeToDrawer([this] { noteIconDrawer(); });
    applyDesktopIcons();
    setLaunchAtLoginOnce();
    if (!isOnboarded()) {
        showOnboarding();
    }
}

void ApplicationShell::handle(UserRequest request) {
    switch (request) {
    case UserRequest::reopen:
        isOnboarded() ? openSettings() : showOnboarding();
        break;
    case UserRequest::openSettings:
        openSettings();
        break;
    case UserRequest::checkForUpdates:
        checkForUpdates();
        break;
    case UserRequest::quit:
        quit();
        break;
    }
}

bool ApplicationShell::isOnboarded() const {
    return m_context.defaults.boolean(onboardedKey);
}

/// Where the desktop is as the user wants it, nothing is run, which would restart the desktop.
void ApplicationShell::applyDesktopIcons() {
    m_desktopIcons.systemIconsVisible(m_questions.whileAlive([this](bool areVisible) {
        // Read now: the user may have worked the switch meanwhile.
        const bool hide = m_context.defaults.boolean(hideIconsKey);
        if (hide == areVisible) {
            m_desktopIcons.applyHidden(hide);
        }
    }));
}

/// At login the program that draws the icons may come up after us.
void ApplicationShell::noteIconDrawer() {
    if (!m_context.defaults.boolean(hideIconsKey) || m_laterTries >= mostLaterTries) {
        return;
    }
    m_desktopIcons.systemIconsVisible(m_questions.whileAlive([this](bool areVisible) {
        if (areVisible && m_context.defaults.boolean(hideIconsKey)) {
            ++m_laterTries;
            m_desktopIcons.applyHidden(true);
        }
    }));
}

void ApplicationShell::setLaunchAtLoginOnce() {
    if (!m_context.defaults.boolean(didSetDefaultKey)) {
        m_context.defaults.set(didSetDefaultKey, true);
        m_launchAtLogin.setEnabled(true);
    }
    m_launchAtLogin.renew();
}

void ApplicationShell::showOnboarding() {
    m_context.ports.policy.setActivationPolicy(ActivationPolicy::regular);
    windows().showOnboarding(
        {.onDone = [this] { onboardingDone(); },
         .onClosed =
             [this] { m_context.ports.policy.setActivationPolicy(ActivationPolicy::accessory); }});
}

void ApplicationShell::onboardingDone() {
    m_context.defaults.set(onboardedKey, true);
    windows().closeOnboarding();
    m_context.ports.policy.setActivationPolicy(ActivationPolicy::accessory);
    if (m_context.inputEvents.isTrusted()) {
        m_context.startInput();
    }
}

void ApplicationShell::openSettings() {
    windows().openSettings();
}

void ApplicationShell::checkForUpdates() {
    m_context.ports.updates.checkForUpdates();
    windows().openUpdates(); // which tell what was found
}

void ApplicationShell::quit() const {
    m_context.persist();
    m_context.terminate();
}

ApplicationWindows &ApplicationShell::windows() {
    if (!m_windows) {
        m_windows = m_context.makeWindows();
    }
    return *m_windows;
}

} // namespace zeph
