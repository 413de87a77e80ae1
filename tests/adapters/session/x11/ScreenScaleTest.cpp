// SPDX-License-Identifier: MIT
#include "adapters/session/x11/ScreenScale.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {
namespace {

double scale(const ScaleSettings &settings, qsizetype index = 0, std::optional<double> told = {}) {
    return screenScale(settings, {u"DP-1"_s, index, told});
}

TEST(ScreenScale, isOneWhereNothingIsSaid) {
    EXPECT_EQ(scale({}), 1);
    EXPECT_EQ(scale({"Xcursor.size:\t24\n"}), 1);
    EXPECT_EQ(scale({"Xft.dpi: much\n"}), 1);
}

TEST(ScreenScale, is96DotsAnInchOfTheResources) {
    EXPECT_EQ(scale({"Xcursor.size:\t24\nXft.dpi:\t144\n"}), 1.5);
    EXPECT_EQ(scale({"Xft.dpi:192"}), 2);
    EXPECT_EQ(scale({"Xft.dpi: 96.7"}), 97 / 96.0) << "in whole dots";
    EXPECT_EQ(scale({"My.Xft.dpi: 192"}), 1);
}

TEST(ScreenScale, isNotLessForFewerDots) {
    EXPECT_EQ(scale({"Xft.dpi: 80"}), 1);
}

TEST(ScreenScale, isMultipliedByTheUsersFactor) {
    EXPECT_EQ(scale({"Xft.dpi: 144", "1.5"}), 2.25);
    EXPECT_EQ(scale({"", "2"}), 2);
    EXPECT_EQ(scale({"", "0"}), 1);
    EXPECT_EQ(scale({"", "-2"}), 1);
}

TEST(ScreenScale, ofOneScreenGoesBeforeTheResources) {
    EXPECT_EQ(scale({"Xft.dpi: 144", "", "HDMI-1=3;DP-1=1.25"}), 1.25);
    EXPECT_EQ(scale({"Xft.dpi: 144", "2", "DP-1=1.25"}), 2.5);
    EXPECT_EQ(scale({"Xft.dpi: 144", "", "HDMI-1=3"}), 1.5);
    EXPECT_EQ(scale({"Xft.dpi: 144", "", "1.25;2"}, 1), 2);
    EXPECT_EQ(scale({"Xft.dpi: 144", "", "1.25;2"}, 2), 1.5);
}

TEST(ScreenScale, thatTheDesktopTellsGoesBeforeTheResources) {
    EXPECT_EQ(scale({"Xft.dpi: 144"}, 0, 2), 2);
    EXPECT_EQ(scale({"Xft.dpi: 144"}, 0, 1), 1);
    EXPECT_EQ(scale({"Xft.dpi: 144", "1.5"}, 0, 2), 3);
    EXPECT_EQ(scale({"", "", "DP-1=1.25"}, 0, 2), 1.25);
    EXPECT_EQ(scale({"", "", "DP-1=0"}, 0, 2), 2);
}

} // namespace
} // namespace zeph
