// SPDX-License-Identifier: MIT
#include "host/MenuBarController.h"

#include "ports/StatusBar.h"

using namespace Qt::StringLiterals;

namespace zeph {

MenuBarController::MenuBarController(StatusBar &statusBar, const MenuActions &actions)
    : m_statusItem(statusBar.makeItem(u"circle.dotted.circle"_s, u"Tavi"_s, menu(actions))) {}

MenuBarController::~MenuBarController() = default;

std::vector<MenuItem> MenuBarController::menu(const MenuActions &actions) {
    const MenuItem separator;
    return {
        {.text = u"Tavi"_s},
        separator,
        {.text = u"Settings & Permissions…"_s, .key = u","_s, .action = actions.openSettings},
        {.text = u"Check for Updates…"_s, .action = actions.checkForUpdates},
        separator,
        {.text = u"Everything stays on your computer"_s},
        separator,
        {.text = u"Quit Tavi"_s, .key = u"q"_s, .action = actions.quit},
    };
}

} // namespace zeph
