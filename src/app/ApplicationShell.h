// SPDX-License-Identifier: MIT
#pragma once

#include "app/UserRequest.h"
#include "base/ChangePublisher.h"
#include "base/WorkOwner.h"
#include "host/DesktopIconsManager.h"
#include "host/LaunchAtLogin.h"

#include <functional>
#include <memory>

namespace zeph {

class ApplicationWindows;
class Background;
class InputEvents;
class MenuBarController;
class RunLoop;
class UserDefaults;
struct ShellPorts;

/// What the shell works with; everything outlives it.
struct ShellContext {
    const ShellPorts &ports;
    UserDefaults &defaults;
    const Background &background;
    const InputEvents &inputEvents;
    std::function<std::unique_ptr<ApplicationWindows>()> makeWindows; ///< called at most once
    std::function<void()> startInput; ///< begins to listen to the input, which is allowed now
    std::function<void()> persist;    ///< saves what was counted
    std::function<void()> terminate;  ///< has the program end
};

/// What stands around the wallpaper: tray, login item, desktop icons, updates and the program's
/// own windows, of which there are none until one is opened. Main thread only.
class ApplicationShell {
public:
    explicit ApplicationShell(ShellContext context);
    ~ApplicationShell();
    ApplicationShell(const ApplicationShell &) = delete;
    ApplicationShell &operator=(const ApplicationShell &) = delete;

    /// Puts the item into the tray, brings the desktop's icons to what the user wants, has the
    /// program start with the session, once for all, and shows the first-run window until the
    /// user went through it.
    void launch();

    void handle(UserRequest request);

    LaunchAtLogin &launchAtLogin() { return m_launchAtLogin; }
    DesktopIconsManager &desktopIcons() { return m_desktopIcons; }

private:
    bool isOnboarded() const;
    void applyDesktopIcons();
    void noteIconDrawer();
    void setLaunchAtLoginOnce();
    void showOnboarding();
    void onboardingDone();
    void openSettings();
    void checkForUpdates();
    void quit() const;
    ApplicationWindows &windows();

    ShellContext m_context;
    LaunchAtLogin m_launchAtLogin;
    DesktopIconsManager m_desktopIcons;
    WorkOwner m_questions;
    Subscription m_iconDrawers;
    int m_laterTries = 0; // to hide icons that came later
    std::unique_ptr<MenuBarController> m_menuBar;
    std::unique_ptr<ApplicationWindows> m_windows;
};

} // namespace zeph
