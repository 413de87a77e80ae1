// SPDX-License-Identifier: MIT
#include "golden/GoldenImage.h"
#include "ui/settings/AboutPane.h"
#include "ui/settings/DisplayPane.h"
#include "ui/settings/GeneralPane.h"
#include "ui/settings/LayoutPane.h"
#include "ui/settings/PaneFixture.h"
#include "ui/settings/PermissionsPane.h"
#include "ui/settings/SettingsWindow.h"

#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace zeph::ui {

/// The panes in the window, as the sample day's user sees them. Whole ones are as high as they
/// are long.
class PanesGoldenTest : public PaneFixture {
protected:
    PanesGoldenTest() {
        fillMorning();
        preferences.setBackgroundMode(BackgroundMode::solid);
        preferences.setBackgroundHex(u"#0D0F1F"_s);
        preferences.setUse24HourClock(true);
        paneLoginItem.enabled = true;
        Screen harbor = screen(u"harbor"_s, 1, 1920, 1080, 0, 2);
        harbor.name = u"Harbor 27"_s;
        Screen builtIn = screen(u"builtIn"_s, 2, 1920, 1200);
        builtIn.name = u"Built-in display"_s;
        screens.screens = {harbor, builtIn};
        virtualDesktops.displays = {display(4, 1)};
        preferences.setDesktopSelection(SomeDesktops{{1, 2}});
    }

    std::vector<SettingsWindow::Tab> tabs() {
        const SettingsContext known = paneContext();
        const auto other = [] { return std::make_unique<Pane>(); };
        return {{u"gearshape"_s, u"General"_s,
                 [this, known] {
                     return std::make_unique<GeneralPane>(known, u"~/Desktop"_s, background);
                 }},
                {u"puzzlepiece.extension"_s, u"Integrations"_s, other},
                {u"square.grid.2x2"_s, u"Widgets"_s,
                 [known] { return std::make_unique<DisplayPane>(known); }},
                {u"rectangle.3.group"_s, u"Visual Layout"_s,
                 [known] { return std::make_unique<LayoutPane>(known); }},
                {u"lock.shield"_s, u"Permissions"_s,
                 [known] { return std::make_unique<PermissionsPane>(known); }},
                {u"info.circle"_s, u"About"_s, [known] {
                     return std::make_unique<AboutPane>(known, QUrl(u"mailto:help@example.org"_s));
                 }}};
    }

    /// Both appearances of a tab in a window of that height.
    void expectPictures(const QString &name, int tab, int height = 580) {
        for (const bool isDark : {true, false}) {
            appearance.wantedScheme =
                isDark ? DesktopAppearance::Scheme::dark : DesktopAppearance::Scheme::light;
            const QString shade = isDark ? u"dark"_s : u"light"_s;
            EXPECT_TRUE(matchesGolden(picture(tab, height), u"pane-%1-%2"_s.arg(name, shade)));
        }
    }

    QImage picture(int tab, int height) {
        SettingsWindow shown(tabs(), appearance, loop);
        shown.resize(880, height);
        shown.showTab(tab);
        shown.show();
        settle();
        settle();
        return shown.grab().toImage();
    }
};

TEST_F(PanesGoldenTest, general) {
    expectPictures(u"general"_s, 0, 1900);
}

TEST_F(PanesGoldenTest, generalTimeOfDay) {
    preferences.setBackgroundMode(BackgroundMode::automatic);
    expectPictures(u"general-time"_s, 0, 700);
}

TEST_F(PanesGoldenTest, generalTransparent) {
    preferences.setBackgroundMode(BackgroundMode::transparent);
    expectPictures(u"general-transparent"_s, 0, 700);
}

TEST_F(PanesGoldenTest, widgets) {
    for (const WidgetKind kind :
         {WidgetKind::desktop, WidgetKind::reminders, WidgetKind::lemonsqueezy, WidgetKind::dodo,
          WidgetKind::gumroad, WidgetKind::polar, WidgetKind::trustmrr, WidgetKind::ahrefs,
          WidgetKind::hackernews, WidgetKind::reddit, WidgetKind::producthunt,
          WidgetKind::bluesky}) {
        preferences.set(WidgetPlacement::off, kind);
    }
    preferences.setSize(WidgetSizeOption::large, WidgetKind::countdowns);
    state.deviceBatteries = std::vector<DeviceBattery>{};
    expectPictures(u"widgets"_s, 2, 2680);
}

TEST_F(PanesGoldenTest, layoutAuto) {
    expectPictures(u"layout-auto"_s, 3);
}

TEST_F(PanesGoldenTest, layoutCustom) {
    preferences.setLayoutMode(WidgetLayoutMode::manual);
    expectPictures(u"layout-custom"_s, 3);
}

TEST_F(PanesGoldenTest, permissions) {
    consents.input.set(ConsentState::granted);
    eventStore.access[EntityType::event] = EventAccess::fullAccess;
    permissions->refresh();
    expectPictures(u"permissions"_s, 4);
}

TEST_F(PanesGoldenTest, permissionsWhereKeysCanNotBeCounted) {
    input.countsKeys = false;
    eventStore.access[EntityType::event] = EventAccess::fullAccess;
    permissions->refresh();
    expectPictures(u"permissions-uncounted"_s, 4);
}

TEST_F(PanesGoldenTest, permissionsWhereTheyTellTheAppInFrontAlone) {
    input.countsKeys = false;
    input.tellsFront = true;
    permissions->refresh();
    expectPictures(u"permissions-front"_s, 4);
}

TEST_F(PanesGoldenTest, about) {
    expectPictures(u"about"_s, 5);
}

} // namespace zeph::ui
