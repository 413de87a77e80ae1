// SPDX-License-Identifier: MIT
#include "ui/controls/Switch.h"
#include "ui/settings/NumberFormatCard.h"
#include "ui/settings/PaneFixture.h"
#include "ui/settings/UnitsCard.h"

#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace zeph::ui {

class UnitsCardTest : public PaneFixture {};

TEST_F(UnitsCardTest, storesTheChosenUnitsAndFollowsThem) {
    preferences.setUnitSystem(UnitSystem::metric);
    show(new UnitsCard(paneContext()));
    EXPECT_TRUE(named<QRadioButton>(u"Metric"_s).isChecked());
    click(named<QRadioButton>(u"Imperial"_s));
    EXPECT_EQ(preferences.unitSystem(), UnitSystem::imperial);
    press(named<QRadioButton>(u"Imperial"_s), Qt::Key_Left);
    EXPECT_EQ(preferences.unitSystem(), UnitSystem::metric);
    preferences.setUnitSystem(UnitSystem::imperial);
    settle();
    EXPECT_TRUE(named<QRadioButton>(u"Imperial"_s).isChecked());
}

class NumberFormatCardTest : public PaneFixture {};

TEST_F(NumberFormatCardTest, storesWhoseRulesNumbersFollow) {
    show(new NumberFormatCard(paneContext()));
    auto &usesRegion = named<Switch>(u"Use my region's number format"_s);
    EXPECT_FALSE(usesRegion.isChecked());
    click(usesRegion);
    EXPECT_TRUE(preferences.useSystemNumberFormat());
    preferences.setUseSystemNumberFormat(false);
    settle();
    EXPECT_FALSE(usesRegion.isChecked());
}

} // namespace zeph::ui
