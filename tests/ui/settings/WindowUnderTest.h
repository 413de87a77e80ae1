// SPDX-License-Identifier: MIT
#pragma once

#include "support/FakeDesktopAppearance.h"
#include "support/ManualRunLoop.h"
#include "ui/controls/SideBar.h"
#include "ui/settings/SamplePane.h"
#include "ui/settings/SettingsWindow.h"

#include <QApplication>

#include <array>

namespace zeph::ui {

/// The settings window over sample panes.
struct WindowUnderTest {
    explicit WindowUnderTest(DesktopAppearance::Scheme scheme = DesktopAppearance::Scheme::dark) {
        desktop.wantedScheme = scheme;
        window = std::make_unique<SettingsWindow>(tabs(), desktop, loop);
    }

    void open() {
        window->show();
        window->activateWindow();
        QApplication::setActiveWindow(window.get());
        QApplication::processEvents();
    }

    std::vector<SettingsWindow::Tab> tabs() {
        using namespace Qt::StringLiterals;
        const std::array<SideBar::Tab, 6> all{{{u"gearshape"_s, u"General"_s},
                                               {u"puzzlepiece.extension"_s, u"Integrations"_s},
                                               {u"square.grid.2x2"_s, u"Widgets"_s},
                                               {u"rectangle.3.group"_s, u"Visual Layout"_s},
                                               {u"lock.shield"_s, u"Permissions"_s},
                                               {u"info.circle"_s, u"About"_s}}};
        std::vector<SettingsWindow::Tab> made;
        for (std::size_t index = 0; index < all.size(); ++index) {
            const SideBar::Tab &tab = all[index];
            made.push_back({tab.symbol, tab.title, [this, index, title = tab.title] {
                                auto pane = std::make_unique<SamplePane>(title);
                                panes[index] = pane.get();
                                return pane;
                            }});
        }
        return made;
    }

    ManualClock clock;
    ManualRunLoop loop{clock};
    FakeDesktopAppearance desktop;
    std::array<SamplePane *, 6> panes{};
    std::unique_ptr<SettingsWindow> window;
};

} // namespace zeph::ui
