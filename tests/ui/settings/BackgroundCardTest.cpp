// SPDX-License-Identifier: MIT
#include "ui/settings/BackgroundCard.h"

#include "drawing/palette/BackgroundPresets.h"
#include "ui/controls/PercentSlider.h"
#include "ui/controls/Swatch.h"
#include "ui/settings/ColorWell.h"
#include "ui/settings/PaneFixture.h"

#include <QColorDialog>
#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace zeph::ui {

class BackgroundCardTest : public PaneFixture {
protected:
    BackgroundCardTest() { preferences.setBackgroundMode(BackgroundMode::solid); }

    void open() { show(new BackgroundCard(paneContext())); }
};

TEST_F(BackgroundCardTest, offersTheModesInOrderAndStoresTheChosenOne) {
    open();
    const auto buttons = window.findChildren<QRadioButton *>();
    ASSERT_GE(buttons.size(), 3);
    EXPECT_EQ(buttons[0]->text(), u"Solid"_s);
    EXPECT_EQ(buttons[1]->text(), u"Time of day"_s);
    EXPECT_EQ(buttons[2]->text(), u"Transparent"_s);
    EXPECT_TRUE(buttons[0]->isChecked());

    click(*buttons[1]);
    EXPECT_EQ(preferences.backgroundMode(), BackgroundMode::automatic);
    EXPECT_TRUE(says(u"Shifts with the time of day — warmer at midday, deep at night."_s));
    press(*buttons[1], Qt::Key_Right);
    EXPECT_EQ(preferences.backgroundMode(), BackgroundMode::transparent);
    EXPECT_TRUE(says(u"Your desktop wallpaper shows through; set how opaque the widgets sit on "
                     u"top."_s));
    click(*buttons[0]);
    EXPECT_EQ(preferences.backgroundMode(), BackgroundMode::solid);
    EXPECT_TRUE(says(u"A single static color. Pick a preset or your own."_s));
}

TEST_F(BackgroundCardTest, followsAModeThatIsSetElsewhere) {
    open();
    preferences.setBackgroundMode(BackgroundMode::transparent);
    settle();
    EXPECT_TRUE(named<QRadioButton>(u"Transparent"_s).isChecked());
    EXPECT_TRUE(find<PercentSlider>(u"Widget opacity"_s));
    EXPECT_FALSE(find<ColorWell>(u"Custom color"_s));
}

TEST_F(BackgroundCardTest, aSwatchStoresItsColorAndShowsItsName) {
    preferences.setBackgroundHex(u"#0D0F1F"_s);
    open();
    EXPECT_TRUE(named<Swatch>(u"Midnight"_s).isChecked());
    for (const BackgroundPresets::Preset &preset : BackgroundPresets::all()) {
        auto &swatch = named<Swatch>(preset.name);
        click(swatch);
        EXPECT_EQ(preferences.backgroundHex(), preset.hex);
        EXPECT_TRUE(swatch.isChecked());
        EXPECT_TRUE(says(preset.name));
    }
}

TEST_F(BackgroundCardTest, arrowsChooseAmongTheSwatches) {
    preferences.setBackgroundHex(u"#0D0F1F"_s);
    open();
    press(named<Swatch>(u"Midnight"_s), Qt::Key_Right);
    EXPECT_EQ(preferences.backgroundHex(), u"#060810"_s);
}

TEST_F(BackgroundCardTest, aColorOfOnesOwnMarksNoSwatch) {
    preferences.setBackgroundHex(u"#123456"_s);
    open();
    EXPECT_EQ(named<ColorWell>(u"Custom color"_s).color(), QColor(0x12, 0x34, 0x56));
    EXPECT_TRUE(says(u"#123456"_s));
    for (const Swatch *swatch : all<Swatch>()) {
        EXPECT_FALSE(swatch->isChecked());
    }
    click(named<Swatch>(u"Wine"_s)); // from where none is marked
    EXPECT_EQ(preferences.backgroundHex(), u"#1A0A12"_s);
}

TEST_F(BackgroundCardTest, aStoredTextThatIsNoColorShowsWhatTheWallpaperShows) {
    preferences.setBackgroundHex(u"nonsense"_s);
    open();
    EXPECT_EQ(named<ColorWell>(u"Custom color"_s).color(), QColor(0x0D, 0x0F, 0x1F));
}

TEST_F(BackgroundCardTest, asksForAColorWithoutWaitingAndStoresItsText) {
    open();
    click(named<ColorWell>(u"Custom color"_s));
    auto *dialog = window.findChild<QColorDialog *>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->windowTitle(), u"Custom color"_s);
    dialog->setCurrentColor(QColor(0xab, 0x0c, 0xde));
    dialog->accept();
    settle();
    EXPECT_EQ(preferences.backgroundHex(), u"#AB0CDE"_s);
}

TEST_F(BackgroundCardTest, aDismissedQuestionForAColorStoresNothing) {
    preferences.setBackgroundHex(u"#123456"_s);
    open();
    click(named<ColorWell>(u"Custom color"_s));
    auto *dialog = window.findChild<QColorDialog *>();
    dialog->setCurrentColor(Qt::red);
    dialog->reject();
    settle();
    EXPECT_EQ(preferences.backgroundHex(), u"#123456"_s);
}

TEST_F(BackgroundCardTest, theSliderStoresAHundredthOfItsPercentage) {
    preferences.setBackgroundMode(BackgroundMode::transparent);
    preferences.setTransparentDim(0.35);
    open();
    auto &opacity = named<PercentSlider>(u"Widget opacity"_s);
    EXPECT_EQ(opacity.value(), 35);
    press(opacity, Qt::Key_Right);
    EXPECT_DOUBLE_EQ(preferences.transparentDim(), 0.36);
    press(opacity, Qt::Key_End);
    EXPECT_DOUBLE_EQ(preferences.transparentDim(), 1.0);
    press(opacity, Qt::Key_Home);
    EXPECT_DOUBLE_EQ(preferences.transparentDim(), 0.0);
}

TEST_F(BackgroundCardTest, showingAnOpacityDoesNotRoundTheStoredOne) {
    preferences.setBackgroundMode(BackgroundMode::transparent);
    preferences.setTransparentDim(0.3549);
    open();
    preferences.setUse24HourClock(true); // a refresh
    settle();
    EXPECT_DOUBLE_EQ(preferences.transparentDim(), 0.3549);
    EXPECT_EQ(named<PercentSlider>(u"Widget opacity"_s).value(), 35);
}

TEST_F(BackgroundCardTest, swatchesTakeTwoRowsWhereOneIsTooLong) {
    open();
    auto &first = named<Swatch>(u"Midnight"_s);
    auto &last = named<Swatch>(u"Teal Dusk"_s);
    const auto top = [this](QWidget &swatch) { return swatch.mapTo(&window, QPoint()).y(); };
    window.resize(700, 700);
    settle();
    EXPECT_EQ(top(first), top(last));
    window.resize(480, 700);
    settle();
    EXPECT_LT(top(first), top(last));
}

} // namespace zeph::ui
