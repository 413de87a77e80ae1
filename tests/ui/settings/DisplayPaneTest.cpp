// SPDX-License-Identifier: MIT
#include "ui/settings/DisplayPane.h"

#include "ui/controls/SizeChoice.h"
#include "ui/controls/Switch.h"
#include "ui/settings/PaneFixture.h"
#include "ui/settings/WidgetPlacementRow.h"

#include <QAbstractButton>

using namespace Qt::StringLiterals;

namespace zeph::ui {

namespace {

const QString connectHint = u"Add this in Integrations to show it on your wallpaper."_s;

} // namespace

class DisplayPaneTest : public PaneFixture {
protected:
    DisplayPaneTest() {
        for (const WidgetKind kind : allWidgetKinds()) {
            preferences.set(WidgetPlacement::off, kind);
        }
    }

    void open() { show(new DisplayPane(paneContext())); }

    void openRow(WidgetKind kind) { show(new WidgetPlacementRow(kind, paneContext())); }

    /// Whether any row tells why its widget is not shown.
    bool saysWhy() const {
        const auto labels = all<TextLabel>();
        return std::any_of(labels.begin(), labels.end(), [](const TextLabel *label) {
            return label->isVisible() && label->text().startsWith(u"Why isn't"_s);
        });
    }

    bool offersSizes() { return find<SizeChoice>(u"Size of Weather"_s) != nullptr; }
};

TEST_F(DisplayPaneTest, listsEveryWidgetOfEverySectionInOrder) {
    open();
    QStringList expected;
    for (const WidgetSection &section : settingsSections()) {
        for (const WidgetKind kind : section.kinds) {
            expected << title(kind);
        }
        EXPECT_TRUE(says(section.title));
        EXPECT_TRUE(says(section.subtitle));
    }
    QStringList shown;
    for (const Switch *isOn : all<Switch>()) {
        shown << isOn->accessibleName();
    }
    EXPECT_EQ(shown, expected);
}

TEST_F(DisplayPaneTest, switchesEachWidgetOnAndOff) {
    open();
    for (const WidgetSection &section : settingsSections()) {
        for (const WidgetKind kind : section.kinds) {
            auto &isOn = named<Switch>(title(kind));
            EXPECT_FALSE(isOn.isChecked());
            click(isOn);
            EXPECT_EQ(preferences.placement(kind), WidgetPlacement::always);
            press(isOn, Qt::Key_Space);
            EXPECT_EQ(preferences.placement(kind), WidgetPlacement::off);
        }
    }
}

TEST_F(DisplayPaneTest, aClickOnTheTitleWorksTheSwitch) {
    open();
    click(named<TextLabel>(u"Weather"_s));
    EXPECT_EQ(preferences.placement(WidgetKind::weather), WidgetPlacement::always);
}

TEST_F(DisplayPaneTest, aWidgetThatIsOnHasASize) {
    preferences.set(WidgetPlacement::always, WidgetKind::weather);
    open();
    auto &size = named<SizeChoice>(u"Size of Weather"_s);
    EXPECT_EQ(size.chosen(), 0);
    EXPECT_EQ(size.toolTip(), u"Display size: Small, Medium or Large"_s);
    const auto buttons = size.findChildren<QAbstractButton *>();
    ASSERT_EQ(buttons.size(), 3);
    click(*buttons[2]);
    EXPECT_EQ(preferences.size(WidgetKind::weather), WidgetSizeOption::large);
    click(*buttons[1]);
    EXPECT_EQ(preferences.size(WidgetKind::weather), WidgetSizeOption::medium);
}

TEST_F(DisplayPaneTest, theSizeComesBackWithTheWidget) {
    preferences.set(WidgetPlacement::always, WidgetKind::weather);
    preferences.setSize(WidgetSizeOption::large, WidgetKind::weather);
    open();
    click(named<Switch>(u"Weather"_s));
    EXPECT_FALSE(offersSizes());
    click(named<Switch>(u"Weather"_s));
    EXPECT_TRUE(offersSizes());
    EXPECT_EQ(preferences.size(WidgetKind::weather), WidgetSizeOption::large);
    EXPECT_EQ(named<SizeChoice>(u"Size of Weather"_s).chosen(), 2);
}

TEST_F(DisplayPaneTest, followsAWidgetThatIsSwitchedElsewhere) {
    open();
    preferences.set(WidgetPlacement::always, WidgetKind::clock);
    settle();
    EXPECT_TRUE(named<Switch>(u"Time & date"_s).isChecked());
}

TEST_F(DisplayPaneTest, theHintOfAMissingAccountGoesWhenOneIsAdded) {
    openRow(WidgetKind::coingecko);
    auto *row = all<WidgetPlacementRow>().front();
    EXPECT_FALSE(says(connectHint)); // the widget is off
    preferences.set(WidgetPlacement::always, WidgetKind::coingecko);
    row->refresh();
    EXPECT_TRUE(says(connectHint));
    integrations.addConnection(u"coingecko"_s, {}, u"bitcoin"_s);
    row->refresh();
    EXPECT_FALSE(says(connectHint));
}

TEST_F(DisplayPaneTest, theHintFollowsTheAccountsLive) {
    preferences.set(WidgetPlacement::always, WidgetKind::coingecko);
    open();
    EXPECT_TRUE(says(connectHint));
    integrations.addConnection(u"coingecko"_s, {}, u"bitcoin"_s);
    settle();
    EXPECT_FALSE(says(connectHint));
}

TEST_F(DisplayPaneTest, aQuoteThatIsSwitchedOffNeedsTheHint) {
    preferences.set(WidgetPlacement::always, WidgetKind::quote);
    integrations.setQuoteEnabled(false);
    openRow(WidgetKind::quote);
    EXPECT_TRUE(says(connectHint));
}

TEST_F(DisplayPaneTest, tellsWhyAWidgetThatIsOnIsNotShownUntilItIs) {
    preferences.set(WidgetPlacement::always, WidgetKind::devices);
    open();
    const QString why = u"Why isn't this shown? No connected device tells its charge."_s;
    EXPECT_TRUE(says(why));
    state.deviceBatteries = std::vector<DeviceBattery>{{u"Mouse"_s, 64}};
    settle();
    EXPECT_FALSE(says(why));
    state.deviceBatteries = std::vector<DeviceBattery>{};
    settle();
    EXPECT_TRUE(says(why));
    click(named<Switch>(u"Device batteries"_s));
    EXPECT_FALSE(saysWhy()); // one that is off needs no reason
}

TEST_F(DisplayPaneTest, aReasonThatEndsLikeASentenceGetsNoSecondStop) {
    preferences.set(WidgetPlacement::always, WidgetKind::coingecko);
    integrations.addConnection(u"coingecko"_s, {}, u"bitcoin"_s);
    SimpleIntegrationStats failed;
    failed.provider = u"coingecko"_s;
    failed.error = u"api.example.org did not answer."_s;
    state.simpleStats = std::vector<SimpleIntegrationStats>{failed};
    openRow(WidgetKind::coingecko);
    EXPECT_TRUE(says(u"Why isn't this shown? The last fetch failed: api.example.org did not "
                     u"answer."_s));
}

} // namespace zeph::ui
