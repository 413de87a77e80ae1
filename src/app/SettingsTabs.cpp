// SPDX-License-Identifier: MIT
#include "app/SettingsTabs.h"

#include "ui/settings/Pane.h"
#include "ui/settings/SettingsContext.h"

using namespace Qt::StringLiterals;

namespace zeph {

std::vector<ui::SettingsWindow::Tab> settingsTabs(const ui::SettingsContext &) {
    const auto empty = [] { return std::make_unique<ui::Pane>(); };
    return {
        {u"gearshape"_s, u"General"_s, empty},
        {u"puzzlepiece.extension"_s, u"Integrations"_s, empty},
        {u"square.grid.2x2"_s, u"Widgets"_s, empty},
        {u"rectangle.3.group"_s, u"Visual Layout"_s, empty},
        {u"lock.shield"_s, u"Permissions"_s, empty},
        {u"info.circle"_s, u"About"_s, empty},
    };
}

} // namespace zeph
