// SPDX-License-Identifier: MIT
#include "ui/settings/LayoutPane.h"

#include "ui/controls/PillButton.h"
#include "ui/controls/ReorderList.h"
#include "ui/settings/PaneFixture.h"
#include "ui/settings/WallpaperThumbnail.h"
#include "widgets/LayoutRows.h"

#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace zeph::ui {

class LayoutPaneTest : public PaneFixture {
protected:
    LayoutPaneTest() { fillMorning(); }

    void open() {
        show(new LayoutPane(paneContext()));
        window.resize(680, 620);
        settle();
    }

    void openCustom() {
        preferences.setLayoutMode(WidgetLayoutMode::manual);
        open();
    }

    ReorderList &list() { return *all<ReorderList>().front(); }

    QStringList expectedRows() {
        QStringList ids;
        for (const WidgetKind kind : layoutRows(state, preferences, true, calendar)) {
            ids << rawValue(kind);
        }
        return ids;
    }

    static QString countText(qsizetype rows) { return u"%1 widgets · drag to reorder"_s.arg(rows); }
};

TEST_F(LayoutPaneTest, storesTheChosenMode) {
    open();
    EXPECT_TRUE(says(u"Widgets flow automatically to fit your screen. Switch to Custom to reorder "
                     u"them yourself."_s));
    click(named<QRadioButton>(u"Custom"_s));
    EXPECT_EQ(preferences.layoutMode(), WidgetLayoutMode::manual);
    EXPECT_TRUE(says(u"Drag to reorder. Widgets flow top-to-bottom, then into the next column. "
                     u"Time stays pinned bottom-left."_s));
    EXPECT_TRUE(list().isVisible());
    press(named<QRadioButton>(u"Custom"_s), Qt::Key_Left);
    EXPECT_EQ(preferences.layoutMode(), WidgetLayoutMode::automatic);
    EXPECT_FALSE(list().isVisible());
}

TEST_F(LayoutPaneTest, listsTheWidgetsOfTheWallpaperWithoutTheClock) {
    openCustom();
    EXPECT_EQ(list().order(), expectedRows());
    EXPECT_FALSE(list().order().contains(u"clock"_s));
    EXPECT_TRUE(says(countText(list().count())));
}

TEST_F(LayoutPaneTest, aMoveStoresTheWholeNewOrder) {
    openCustom();
    QStringList wanted = list().order();
    wanted.move(0, 1);
    list().setCurrentRow(0);
    list().setFocus();
    QTest::keyClick(&list(), Qt::Key_Down, Qt::AltModifier);
    settle();
    EXPECT_EQ(preferences.customOrder(), wanted);
    EXPECT_EQ(list().order(), wanted);
}

TEST_F(LayoutPaneTest, resettingForgetsTheStoredOrderAndKeepsTheMode) {
    preferences.setCustomOrder({u"weather"_s, u"sun"_s});
    openCustom();
    EXPECT_EQ(list().order().front(), u"weather"_s);
    click(named<PillButton>(u"Reset order"_s));
    EXPECT_FALSE(defaults.contains(u"zeph.widgets.customOrder"_s));
    EXPECT_EQ(preferences.layoutMode(), WidgetLayoutMode::manual);
    EXPECT_EQ(list().order(), expectedRows());
    EXPECT_NE(list().order().front(), u"weather"_s);
}

TEST_F(LayoutPaneTest, aWidgetThatGainsContentAppearsAtOnce) {
    state.deviceBatteries = std::vector<DeviceBattery>{};
    openCustom();
    EXPECT_FALSE(list().order().contains(u"devices"_s));
    state.deviceBatteries = std::vector<DeviceBattery>{{u"Mouse"_s, 64}};
    settle();
    EXPECT_TRUE(list().order().contains(u"devices"_s));
}

TEST_F(LayoutPaneTest, withTheClockAloneThereIsNothingToArrange) {
    for (const WidgetKind kind : allWidgetKinds()) {
        preferences.set(WidgetPlacement::off, kind);
    }
    preferences.set(WidgetPlacement::always, WidgetKind::clock);
    openCustom();
    EXPECT_TRUE(says(u"Turn on widgets in What to Show to arrange them here."_s));
    EXPECT_FALSE(list().isVisible());
    preferences.set(WidgetPlacement::always, WidgetKind::weather);
    settle();
    EXPECT_TRUE(list().isVisible());
    EXPECT_TRUE(says(u"1 widget · drag to reorder"_s));
}

TEST_F(LayoutPaneTest, marksTheWidgetsThatTheScreenHasNoRoomFor) {
    const auto marked = [this] {
        QStringList ids;
        for (int row = 0; row < list().count(); ++row) {
            const QString spokenRow = list().item(row)->data(Qt::AccessibleTextRole).toString();
            if (spokenRow.endsWith(u", does not fit"_s)) {
                ids << list().order()[row];
            }
        }
        return ids;
    };
    openCustom();
    EXPECT_EQ(marked(), QStringList{});
    screens.change({screen(u"small"_s, 2, 500, 300)});
    settle();
    EXPECT_FALSE(marked().isEmpty());
}

TEST_F(LayoutPaneTest, showsTheWallpaperInBothModes) {
    open();
    const auto shown = [this] {
        int count = 0;
        for (const auto *picture : all<WallpaperThumbnail>()) {
            count += picture->isVisible() ? 1 : 0;
        }
        return count;
    };
    EXPECT_EQ(shown(), 1);
    click(named<QRadioButton>(u"Custom"_s));
    EXPECT_EQ(shown(), 1);
}

} // namespace zeph::ui
