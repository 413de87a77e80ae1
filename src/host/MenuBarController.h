// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <vector>

namespace zeph {

class StatusBar;
class StatusItem;
struct MenuItem;

/// What the menu asks for. All of them are set, and may end the controller.
struct MenuActions {
    std::function<void()> openSettings;
    std::function<void()> checkForUpdates;
    std::function<void()> quit;
};

/// The item in the tray with its menu, the only handle of a program without windows. Main thread
/// only.
class MenuBarController {
public:
    MenuBarController(StatusBar &statusBar, const MenuActions &actions);
    ~MenuBarController();
    MenuBarController(const MenuBarController &) = delete;
    MenuBarController &operator=(const MenuBarController &) = delete;

    /// The lines of the menu, in order.
    static std::vector<MenuItem> menu(const MenuActions &actions);

private:
    std::unique_ptr<StatusItem> m_statusItem;
};

} // namespace zeph
