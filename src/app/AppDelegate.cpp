// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"

#include "app/ApplicationShell.h"
#include "app/RequestInbox.h"
#include "app/WebServices.h"
#include "app/WindowParts.h"
#include "base/Background.h"
#include "base/NotificationCenter.h"
#include "host/ApplicationWindows.h"
#include "host/DesktopWindow.h"
#include "host/ScreenSelection.h"
#include "ports/Clock.h"
#include "ports/Platform.h"
#include "ports/RunLoop.h"
#include "ports/ShellPorts.h"
#include "ports/WindowServer.h"
#include "sensing/SamplingCoordinator.h"
#include "services/accounts/IntegrationsStore.h"
#include "services/accounts/Keychain.h"
#include "services/refresh/IntegrationRefresh.h"
#include "settings/PreferencesStore.h"
#include "widgets/RootWallpaperView.h"

#include <algorithm>
#include <utility>

namespace zeph {

namespace {

// By then the display system has the first frame, which nothing of the shell is to hold up.
constexpr std::chrono::milliseconds shellRest{60};

AccountChoices choicesOf(const IntegrationsStore &integrations) {
    return {.quoteEnabled = [&integrations] { return integrations.quoteEnabled(); },
            .showAhrefsAttribution =
                [&integrations](const QUuid &account) {
                    const auto &all = integrations.connections();
                    const auto found =
                        std::find_if(all.begin(), all.end(), [&](const IntegrationConnection &one) {
                            return one.id == account;
                        });
                    return found == all.end() || found->showAhrefsAttribution;
                }};
}

/// The numbers of the chosen workspaces; absent for all. Without any number it is all as well.
std::optional<std::set<int>> chosenDesktops(const DesktopSelection &selection) {
    const auto *some = std::get_if<SomeDesktops>(&selection);
    return some ? std::optional(some->numbers) : std::nullopt;
}

} // namespace

AppDelegate::AppDelegate(AppServices services)
    : m_services(std::move(services)),
      m_state(m_services.platform.clock.now()),
      m_framing{m_services.preferences, m_services.platform.calendar,
                m_services.platform.formatters},
      m_webServices(makeWebServices(m_services.platform, m_services.endpoints, m_framing)),
      m_rootView(std::make_unique<RootWallpaperView>(
          m_state, m_services.preferences, m_services.usageStore, m_framing, m_services.textMetrics,
          choicesOf(m_services.integrations))),
      m_spaces(m_services.platform.virtualDesktops, m_membership, m_services.platform.runLoop,
               [this] { return spaceWindows(); }) {}

AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationDidFinishLaunching() {
    const Platform &platform = m_services.platform;
    m_refresh = std::make_unique<IntegrationRefresh>(
        RefreshContext{m_state, m_services.integrations, m_services.keychain,
                       m_services.preferences, platform.accountBackground, m_webServices});
    m_coordinator = std::make_unique<SamplingCoordinator>(CoordinatorContext{
        m_state, platform, m_services.notifications, m_services.preferences, m_services.usageStore,
        m_services.location, m_services.endpoints, m_services.refreshPeriod, [this] {
            // A keyring that was locked or not there may be open now.
            m_services.integrations.loadCustomAPIs();
            m_refresh->fetchIntegrations();
        }});
    rebuildDesktopWindows();
    m_coordinator->start();
    // In a task, as the keyring may ask for a password.
    platform.background.run(
        m_work, [&keychain = m_services.keychain] { keychain.migrateLegacyServiceIfNeeded(); },
        [] {});
    observeScreenChanges();
    observeSpaces();
    observeChanges();
    updateInsets();
    redrawWindows();
    platform.runLoop.after(shellRest, m_work.whileAlive([this] { launchShell(); }));
}

void AppDelegate::launchShell() {
    const Platform &platform = m_services.platform;
    const ShellPorts &ports = m_services.shellPorts();
    m_shell = std::make_unique<ApplicationShell>(
        ShellContext{.ports = ports,
                     .defaults = platform.userDefaults,
                     .background = platform.background,
                     .inputEvents = platform.inputEvents,
                     .makeWindows =
                         [this, &ports] {
                             return m_services.makeWindows(
                                 {m_services, ports, m_state, *m_rootView, m_framing, m_webServices,
                                  m_shell->launchAtLogin(), m_shell->desktopIcons()});
                         },
                     .startInput = [this] { m_coordinator->input().start(); },
                     .persist = [this] { applicationWillTerminate(); },
                     .terminate = m_services.terminate});
    m_shell->launch();
    m_services.requests.deliverTo(
        m_work.whileAlive([this](UserRequest request) { m_shell->handle(request); }));
}

void AppDelegate::applicationWillTerminate() {
    if (m_coordinator) {
        m_coordinator->persist();
    }
}

void AppDelegate::takeDownWallpaper() {
    m_desktopWindows.clear();
}

void AppDelegate::rebuildDesktopWindows() {
    const std::vector<Screen> screens =
        selectedScreens(m_services.preferences.displaySelection(), m_services.platform.screens);
    QStringList identities;
    for (const Screen &screen : screens) {
        identities.append(builtIdentity(screen));
    }
    if (identities == m_builtScreenIDs && m_desktopWindows.size() == screens.size()) {
        for (std::size_t index = 0; index < screens.size(); ++index) {
            m_desktopWindows[index]->setTargetScreen(screens[index]);
        }
    } else {
        m_desktopWindows.clear();
        buildWindows(screens);
        m_builtScreenIDs = identities;
    }
    updateInsets();
    applyDesktopSelection();
}

void AppDelegate::buildWindows(const std::vector<Screen> &screens) {
    const Platform &platform = m_services.platform;
    const auto chosen = chosenDesktops(m_services.preferences.desktopSelection());
    for (const Screen &screen : screens) {
        auto window = std::make_unique<DesktopWindow>(
            platform.windowServer, platform.runLoop, m_services.preferences, *m_rootView,
            m_services.painter, screen, ++m_lastWindowNumber);
        if (m_spaces.isWantedNow(chosen, screen.persistentID)) {
            window->orderFrontRegardless();
        }
        m_desktopWindows.push_back(std::move(window));
    }
}

void AppDelegate::observeScreenChanges() {
    const auto rebuild = [this] { rebuildDesktopWindows(); };
    m_subscriptions.push_back(m_services.platform.screens.subscribe(rebuild));
    m_subscriptions.push_back(
        m_services.notifications.observe(notifications::zephDisplaySelectionChanged, rebuild));
    m_subscriptions.push_back(m_services.platform.windowServer.subscribeToCompositing([this] {
        for (const auto &window : m_desktopWindows) {
            window->compositingChanged();
        }
    }));
    m_subscriptions.push_back(m_services.platform.windowServer.subscribeToDrawingWay([this] {
        for (const auto &window : m_desktopWindows) {
            window->drawingWayChanged();
        }
    }));
}

void AppDelegate::observeSpaces() {
    m_subscriptions.push_back(m_services.notifications.observe(
        notifications::zephDesktopSelectionChanged, [this] { applyDesktopSelection(); }));
    m_subscriptions.push_back(m_services.platform.virtualDesktops.subscribe([this] {
        // Those that are on every workspace are so without help.
        if (chosenDesktops(m_services.preferences.desktopSelection())) {
            applyDesktopSelection();
        }
    }));
}

void AppDelegate::applyDesktopSelection() {
    const auto chosen = chosenDesktops(m_services.preferences.desktopSelection());
    for (const auto &window : m_desktopWindows) {
        m_spaces.pin(*window, chosen, window->targetScreen().persistentID);
    }
}

std::vector<SpaceWindow *> AppDelegate::spaceWindows() const {
    std::vector<SpaceWindow *> windows;
    for (const auto &window : m_desktopWindows) {
        windows.push_back(window.get());
    }
    return windows;
}

/// The workspace on which that window can be seen.
std::optional<quint64> AppDelegate::spaceOf(int windowNumber) const {
    for (const auto &window : m_desktopWindows) {
        if (window->windowNumber() == windowNumber && window->isVisible()) {
            return activeSpaceOn(window->targetScreen().persistentID, m_spaces.snapshot());
        }
    }
    return std::nullopt;
}

void AppDelegate::observeChanges() {
    m_subscriptions.push_back(m_services.notifications.observe(
        notifications::zephCustomAPIsLoaded, [this] { m_refresh->fetchCustomAPIs(); }));
    const auto redraw = [this] { redrawWindows(); };
    m_subscriptions.push_back(m_state.objectWillChange.subscribe(redraw));
    m_subscriptions.push_back(m_services.preferences.objectWillChange.subscribe(redraw));
    m_subscriptions.push_back(m_services.integrations.objectWillChange.subscribe(redraw));
}

void AppDelegate::redrawWindows() {
    for (const auto &window : m_desktopWindows) {
        window->setNeedsDisplay();
    }
}

std::optional<Screen> AppDelegate::primaryDesktopScreen() const {
    if (!m_desktopWindows.empty()) {
        return m_desktopWindows.front()->targetScreen();
    }
    return m_services.platform.screens.main();
}

void AppDelegate::updateInsets() {
    const auto screen = primaryDesktopScreen();
    if (!screen) {
        return;
    }
    const QRectF &frame = screen->frame;
    const QRectF &visible = screen->visibleFrame;
    EdgeInsets insets;
    insets.top = std::max(0.0, visible.top() - frame.top());
    insets.leading = std::max(0.0, visible.left() - frame.left());
    insets.bottom = std::max(0.0, frame.bottom() - visible.bottom());
    insets.trailing = std::max(0.0, frame.right() - visible.right());
    m_state.dockInsets = insets;
}

} // namespace zeph
