// SPDX-License-Identifier: MIT
#include "drawing/palette/Palette.h"
#include "drawing/palette/BackgroundPresets.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

void expectNear(const Color &color, const Color &expected) {
    EXPECT_NEAR(color.red, expected.red, 1e-9);
    EXPECT_NEAR(color.green, expected.green, 1e-9);
    EXPECT_NEAR(color.blue, expected.blue, 1e-9);
    EXPECT_NEAR(color.alpha, expected.alpha, 1e-9);
}

} // namespace

TEST(Palette, nightIsDeepBlue) {
    const Palette night = Palette::forMood(0, FocusState::off);
    expectNear(night.top, {0.05, 0.06, 0.12, 1});
    expectNear(night.bottom, {0.02, 0.02, 0.05, 1});
    expectNear(night.accent, {0.45, 0.55, 0.95, 1});
    expectNear(night.text, Color::white(0.95));
    expectNear(night.cardFill, Color::white(0.06));
}

TEST(Palette, noonHasAWarmAccent) {
    const Palette noon = Palette::forMood(1, FocusState::off);
    expectNear(noon.top, {0.10, 0.13, 0.22, 1});
    expectNear(noon.bottom, {0.04, 0.05, 0.09, 1});
    expectNear(noon.accent, {0.95, 0.72, 0.45, 1});
    expectNear(noon.text, Color::white(0.95));
}

TEST(Palette, moodIsHeldBetweenNightAndNoon) {
    EXPECT_EQ(Palette::forMood(-1, FocusState::off), Palette::forMood(0, FocusState::off));
    EXPECT_EQ(Palette::forMood(5, FocusState::off), Palette::forMood(1, FocusState::off));
    expectNear(Palette::forMood(0.5, FocusState::off).top, {0.075, 0.095, 0.17, 1});
}

TEST(Palette, focusMovesTheAccentAloneHalfwayToViolet) {
    Palette focused = Palette::forMood(0, FocusState::on);
    expectNear(focused.accent, {0.525, 0.50, 0.925, 1});
    focused.accent = Palette::forMood(0, FocusState::off).accent;
    EXPECT_EQ(focused, Palette::forMood(0, FocusState::off));
}

TEST(Palette, unknownFocusLeavesTheAccentAlone) {
    const Color base{0.2, 0.3, 0.4, 1};
    EXPECT_EQ(Palette::forMood(0.3, FocusState::unknown), Palette::forMood(0.3, FocusState::off));
    EXPECT_EQ(Palette::custom(base, FocusState::unknown), Palette::custom(base, FocusState::off));
    EXPECT_NE(Palette::custom(base, FocusState::on), Palette::custom(base, FocusState::off));
}

TEST(Palette, customColoursAreDerivedFromTheBase) {
    const Palette palette = Palette::custom({0.2, 0.4, 0.1, 1}, FocusState::off);
    expectNear(palette.top, {0.24, 0.43, 0.145, 1});
    expectNear(palette.bottom, {0.13, 0.26, 0.065, 1});
    const HSB accent = hsb(palette.accent);
    EXPECT_NEAR(accent.hue, hsb({0.2, 0.4, 0.1, 1}).hue, 1e-9);
    EXPECT_NEAR(accent.saturation, 0.75 * 1.1, 1e-9);
    EXPECT_NEAR(accent.brightness, 0.4 * 1.5 + 0.35, 1e-9);
    expectNear(palette.text, Color::white(0.93));
    expectNear(palette.cardFill, Color::white(0.06));
}

TEST(Palette, whiteGetsDarkTextAndAnAccentWithSomeSaturation) {
    const Palette palette = Palette::custom(Color::white(), FocusState::off);
    expectNear(palette.text, Color::black(0.82));
    EXPECT_NEAR(hsb(palette.accent).saturation, 0.35, 1e-9);
    EXPECT_NEAR(hsb(palette.accent).brightness, 1, 1e-9);
}

TEST(Palette, textTurnsDarkOnlyAboveTheLimit) {
    // 0.6 of green: 0.9166 lies just below a lightness of 0.55, 0.917 just above.
    EXPECT_EQ(Palette::custom({0, 0.9166, 0, 1}, FocusState::off).text, Color::white(0.93));
    EXPECT_EQ(Palette::custom({0, 0.9170, 0, 1}, FocusState::off).text, Color::black(0.82));
}

TEST(Palette, customSaturationIsHeldAtOne) {
    const Palette palette = Palette::custom({0.5, 0, 0, 1}, FocusState::off);
    EXPECT_NEAR(hsb(palette.accent).saturation, 1, 1e-9);
}

TEST(BackgroundPresets, areTenAndBeginWithMidnight) {
    const auto presets = BackgroundPresets::all();
    ASSERT_EQ(presets.size(), 10U);
    EXPECT_EQ(presets.front().name, u"Midnight"_s);
    EXPECT_EQ(presets.front().hex, u"#0D0F1F"_s);
    EXPECT_EQ(presets.back().name, u"Teal Dusk"_s);
    for (const auto &preset : presets) {
        EXPECT_EQ(Color::fromHex(preset.hex).value().hexString(), preset.hex);
    }
}

TEST(BackgroundPresets, textThatIsNoColourStillGivesADarkPalette) {
    const Color fallback = BackgroundPresets::colorFor(u"blue"_s);
    expectNear(fallback, {0.05, 0.06, 0.12, 1});
    EXPECT_EQ(Palette::custom(fallback, FocusState::off).text, Color::white(0.93));
}

TEST(BackgroundPresets, noTextMeansMidnight) {
    EXPECT_EQ(BackgroundPresets::colorFor({}).hexString(), u"#0D0F1F"_s);
    EXPECT_EQ(BackgroundPresets::colorFor(u"#181612"_s).hexString(), u"#181612"_s);
}

} // namespace zeph
