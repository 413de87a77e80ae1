// SPDX-License-Identifier: MIT
#include "app/SettingsTabs.h"

#include "host/SupportPage.h"
#include "ui/integrations/IntegrationsContext.h"
#include "ui/integrations/IntegrationsPane.h"
#include "ui/settings/AboutPane.h"
#include "ui/settings/DisplayPane.h"
#include "ui/settings/GeneralPane.h"
#include "ui/settings/LayoutPane.h"
#include "ui/settings/PermissionsPane.h"
#include "ui/settings/SettingsContext.h"

using namespace Qt::StringLiterals;

namespace zeph {

std::vector<ui::SettingsWindow::Tab> settingsTabs(const ui::SettingsContext &context,
                                                  const QString &desktopFolder,
                                                  const Background &files) {
    using namespace ui;
    return {
        {u"gearshape"_s, u"General"_s,
         [&context, desktopFolder, &files] {
             return std::make_unique<GeneralPane>(context, desktopFolder, files);
         }},
        {u"puzzlepiece.extension"_s, u"Integrations"_s,
         [&context] {
             return std::make_unique<IntegrationsPane>(IntegrationsContext::of(context));
         }},
        {u"square.grid.2x2"_s, u"Widgets"_s,
         [&context] { return std::make_unique<DisplayPane>(context); }},
        {u"rectangle.3.group"_s, u"Visual Layout"_s,
         [&context] { return std::make_unique<LayoutPane>(context); }},
        {u"lock.shield"_s, u"Permissions"_s,
         [&context] { return std::make_unique<PermissionsPane>(context); }},
        {u"info.circle"_s, u"About"_s,
         [&context] { return std::make_unique<AboutPane>(context, supportPage()); }},
    };
}

} // namespace zeph
