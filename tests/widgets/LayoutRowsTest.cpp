// SPDX-License-Identifier: MIT
#include "widgets/LayoutRows.h"

#include "model/AppState.h"
#include "settings/PreferencesFixture.h"
#include "support/UtcCalendar.h"
#include "widgets/WidgetLayoutCatalog.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace zeph {

namespace {

using namespace Qt::StringLiterals;
using enum WidgetKind;

class LayoutRowsTest : public PreferencesFixture {
protected:
    std::vector<WidgetKind> rows() { return layoutRows(state, prefs(), true, calendar); }

    void switchAllOff() {
        for (const WidgetKind kind : allWidgetKinds()) {
            prefs().set(WidgetPlacement::off, kind);
        }
    }

    void switchOn(std::initializer_list<WidgetKind> kinds) {
        for (const WidgetKind kind : kinds) {
            prefs().set(WidgetPlacement::always, kind);
        }
    }

    UtcCalendar calendar;
    AppState state{Date{1'700'000'000}};
};

TEST_F(LayoutRowsTest, standInTheWallpapersOrderWithoutTheClock) {
    switchAllOff();
    switchOn({clock, weather, machine, meeting});
    EXPECT_THAT(rows(), ElementsAre(machine, meeting, weather));
}

TEST_F(LayoutRowsTest, areNoneWithAllOffButTheClock) {
    switchAllOff();
    switchOn({clock});
    EXPECT_THAT(rows(), IsEmpty());
}

TEST_F(LayoutRowsTest, leaveOutWhatHasNothingToSay) {
    switchAllOff();
    switchOn({devices, machine});
    EXPECT_THAT(rows(), ElementsAre(machine));
    state.deviceBatteries = std::vector<DeviceBattery>(1);
    EXPECT_THAT(rows(), ElementsAre(machine, devices));
}

TEST_F(LayoutRowsTest, keepTheUsersOrderAndWhatIsNewComesAfterIt) {
    switchAllOff();
    switchOn({machine, meeting, weather});
    prefs().setCustomOrder({u"weather"_s, u"machine"_s});
    EXPECT_THAT(rows(), ElementsAre(weather, machine, meeting));
}

TEST_F(LayoutRowsTest, aWidgetThatLostItsContentReturnsToItsPlace) {
    switchAllOff();
    switchOn({devices, machine, meeting});
    state.deviceBatteries = std::vector<DeviceBattery>(1);
    prefs().setCustomOrder({u"meeting"_s, u"devices"_s, u"machine"_s});
    state.deviceBatteries = std::vector<DeviceBattery>();
    EXPECT_THAT(rows(), ElementsAre(meeting, machine));
    EXPECT_EQ(prefs().customOrder().size(), 3);
    state.deviceBatteries = std::vector<DeviceBattery>(1);
    EXPECT_THAT(rows(), ElementsAre(meeting, devices, machine));
}

TEST_F(LayoutRowsTest, areThoseOfTheWallpaperInManualMode) {
    prefs().setLayoutMode(WidgetLayoutMode::manual);
    prefs().setCustomOrder({u"weather"_s, u"machine"_s});
    auto kinds = WidgetLayoutCatalog::orderedKinds(state, prefs(), true, calendar);
    std::erase(kinds, clock);
    EXPECT_EQ(rows(), kinds);
}

TEST_F(LayoutRowsTest, resettingBringsTheDefaultOrderBackAndForgetsTheKey) {
    prefs().setLayoutMode(WidgetLayoutMode::manual);
    const auto before = rows();
    QStringList reversed;
    for (const WidgetKind kind : before) {
        reversed.prepend(rawValue(kind));
    }
    prefs().setCustomOrder(reversed);
    EXPECT_NE(rows(), before);
    prefs().resetCustomOrder();
    EXPECT_EQ(rows(), before);
    EXPECT_EQ(defaults.value(u"zeph.widgets.customOrder"_s), std::nullopt);
    EXPECT_EQ(prefs().layoutMode(), WidgetLayoutMode::manual);
}

TEST_F(LayoutRowsTest, areCountedInWords) {
    EXPECT_EQ(layoutCountText(1), u"1 widget · drag to reorder"_s);
    EXPECT_EQ(layoutCountText(18), u"18 widgets · drag to reorder"_s);
}

} // namespace

} // namespace zeph
