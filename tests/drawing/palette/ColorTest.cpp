// SPDX-License-Identifier: MIT
#include "drawing/palette/Color.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

TEST(Color, hexParsesWithAndWithoutTheHash) {
    const Color midnight{13 / 255.0, 15 / 255.0, 31 / 255.0, 1};
    EXPECT_EQ(Color::fromHex(u"#0D0F1F"_s), midnight);
    EXPECT_EQ(Color::fromHex(u"0D0F1F"_s), midnight);
    EXPECT_EQ(Color::fromHex(u" \n#0d0f1f\t"_s), midnight);
}

TEST(Color, hexOfAnotherLengthIsNoColour) {
    EXPECT_FALSE(Color::fromHex(u"0DF"_s));
    EXPECT_FALSE(Color::fromHex(u"#0D0F1FFF"_s));
    EXPECT_FALSE(Color::fromHex(u"0D0F1"_s));
    EXPECT_FALSE(Color::fromHex(u""_s));
    EXPECT_FALSE(Color::fromHex(u"#"_s));
}

TEST(Color, hexWithOtherCharactersIsNoColour) {
    EXPECT_FALSE(Color::fromHex(u"0D0F1G"_s));
    EXPECT_FALSE(Color::fromHex(u"##D0F1F"_s));
    EXPECT_FALSE(Color::fromHex(u"+D0F1F"_s));
    EXPECT_FALSE(Color::fromHex(u"0x0F1F"_s));
    EXPECT_FALSE(Color::fromHex(u"0D 0F1"_s));
    EXPECT_FALSE(Color::fromHex(u"١٢٣٤٥٦"_s));
}

TEST(Color, hexStringRoundsEachChannelAndLeavesTheAlphaOut) {
    EXPECT_EQ((Color{0.05, 0.5, 1, 0.3}).hexString(), u"#0D80FF"_s);
    EXPECT_EQ(Color::black().hexString(), u"#000000"_s);
}

TEST(Color, hexStringGoesThereAndBack) {
    for (const auto &hex : {u"#0D0F1F"_s, u"#FFFFFF"_s, u"#7F8081"_s}) {
        EXPECT_EQ(Color::fromHex(hex).value().hexString(), hex);
    }
}

TEST(Color, mixHoldsTheFractionAndIsOpaque) {
    const Color mixed = Color::black(0.2).mix(Color{1, 0.5, 0, 0.4}, 0.25);
    EXPECT_EQ(mixed, (Color{0.25, 0.125, 0, 1}));
    EXPECT_EQ(Color::black().mix(Color::white(), -3), Color::black());
    EXPECT_EQ(Color::black().mix(Color::white(), 7), Color::white());
}

TEST(Color, opacityMultipliesTheAlpha) {
    EXPECT_EQ(Color::white(0.5).opacity(0.5), Color::white(0.25));
}

TEST(Color, argbIsTheRoundedAndHeldEightBitValue) {
    EXPECT_EQ((Color{1, 0.5, 0, 0.25}).argb(), 0x40ff8000U);
    EXPECT_EQ((Color{2, -1, 0.998, 1}).argb(), 0xffff00feU);
}

TEST(Color, hsbOfTheSixCornersAndOfGrey) {
    EXPECT_DOUBLE_EQ(hsb(Color{1, 0, 0, 1}).hue, 0);
    EXPECT_DOUBLE_EQ(hsb(Color{1, 1, 0, 1}).hue, 1 / 6.0);
    EXPECT_DOUBLE_EQ(hsb(Color{0, 1, 0, 1}).hue, 2 / 6.0);
    EXPECT_DOUBLE_EQ(hsb(Color{0, 1, 1, 1}).hue, 3 / 6.0);
    EXPECT_DOUBLE_EQ(hsb(Color{0, 0, 1, 1}).hue, 4 / 6.0);
    EXPECT_DOUBLE_EQ(hsb(Color{1, 0, 1, 1}).hue, 5 / 6.0);
    const HSB grey = hsb(Color{0.4, 0.4, 0.4, 1});
    EXPECT_EQ(grey.hue, 0);
    EXPECT_EQ(grey.saturation, 0);
    EXPECT_EQ(grey.brightness, 0.4);
}

TEST(Color, hsbGoesThereAndBack) {
    for (int red = 0; red <= 4; ++red) {
        for (int green = 0; green <= 4; ++green) {
            for (int blue = 0; blue <= 4; ++blue) {
                const Color color{red / 4.0, green / 4.0, blue / 4.0, 1};
                const HSB parts = hsb(color);
                const Color back = Color::fromHSB(parts.hue, parts.saturation, parts.brightness);
                EXPECT_NEAR(back.red, color.red, 1e-12);
                EXPECT_NEAR(back.green, color.green, 1e-12);
                EXPECT_NEAR(back.blue, color.blue, 1e-12);
            }
        }
    }
}

} // namespace zeph
