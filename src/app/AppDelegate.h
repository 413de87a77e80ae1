// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChangePublisher.h"
#include "base/WorkOwner.h"
#include "host/SpaceMembership.h"
#include "host/SpacesManager.h"
#include "model/AppState.h"
#include "ports/Screens.h"
#include "services/refresh/IntegrationServices.h"
#include "wording/FramingContext.h"

#include <QStringList>

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

namespace zeph {

class ApplicationShell;
class ApplicationWindows;
class Calendar;
class DesktopWindow;
class IntegrationRefresh;
class IntegrationsStore;
class Keychain;
class LocationManager;
class NotificationCenter;
class PreferencesStore;
class RequestInbox;
class RootWallpaperView;
class SamplingCoordinator;
class ScenePainter;
class TextMetrics;
class UsageStore;
struct Endpoints;
struct Platform;
struct ShellPorts;
struct WindowParts;

/// What the delegate works with; everything outlives it.
struct AppServices {
    const Platform &platform;
    NotificationCenter &notifications;
    PreferencesStore &preferences;
    UsageStore &usageStore;
    IntegrationsStore &integrations;
    Keychain &keychain;
    LocationManager &location;
    const Endpoints &endpoints;
    std::chrono::milliseconds refreshPeriod; ///< of the web accounts
    const TextMetrics &textMetrics;
    ScenePainter &painter;
    RequestInbox &requests;
    std::function<const ShellPorts &()> shellPorts; ///< called once the first frame is shown
    std::function<std::unique_ptr<ApplicationWindows>(const WindowParts &)>
        makeWindows;                 ///< not before one is opened
    std::function<void()> terminate; ///< has the program end
};

/// The spine of the process: owns the state, the coordinator, the desktop windows and the shell,
/// launches them in order and rebuilds the windows when screens or selections change. Main thread
/// only.
class AppDelegate {
public:
    explicit AppDelegate(AppServices services);
    ~AppDelegate();
    AppDelegate(const AppDelegate &) = delete;
    AppDelegate &operator=(const AppDelegate &) = delete;

    /// The wallpaper at once; tray, windows and all else of the shell after the first frame, and
    /// then what the user asked for meanwhile.
    void applicationDidFinishLaunching();

    /// Saves today. Safe to call more than once, and before the launch finished.
    void applicationWillTerminate();

    /// Takes the wallpaper off the desktop, where the earlier picture shows then; for the end.
    void takeDownWallpaper();

    AppState &state() { return m_state; }
    const std::vector<std::unique_ptr<DesktopWindow>> &desktopWindows() const {
        return m_desktopWindows;
    }
    const QStringList &builtScreenIDs() const { return m_builtScreenIDs; }

private:
    void rebuildDesktopWindows();
    void buildWindows(const std::vector<Screen> &screens);
    void observeScreenChanges();
    void observeChanges();
    void redrawWindows();
    void updateInsets();
    void observeSpaces();
    void applyDesktopSelection();
    std::vector<SpaceWindow *> spaceWindows() const;
    std::optional<quint64> spaceOf(int windowNumber) const;
    void launchShell();
    std::optional<Screen> primaryDesktopScreen() const;

    AppServices m_services;
    AppState m_state;
    FramingContext m_framing;
    IntegrationServices m_webServices;
    std::unique_ptr<RootWallpaperView> m_rootView;
    std::unique_ptr<IntegrationRefresh> m_refresh;
    std::unique_ptr<SamplingCoordinator> m_coordinator;
    std::vector<std::unique_ptr<DesktopWindow>> m_desktopWindows;
    int m_lastWindowNumber = 0;
    QStringList m_builtScreenIDs;
    SpaceMembership m_membership{[this](int number) { return spaceOf(number); },
                                 [this] { return m_spaces.snapshot().everySpaceID; }};
    SpacesManager m_spaces;
    std::vector<Subscription> m_subscriptions;
    WorkOwner m_work;
    std::unique_ptr<ApplicationShell> m_shell; // last: its windows show all the rest
};

} // namespace zeph
