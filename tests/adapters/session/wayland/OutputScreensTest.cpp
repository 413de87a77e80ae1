// SPDX-License-Identifier: MIT
#include "adapters/session/wayland/OutputScreens.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const ScalingAbilities kAnyScale{.integers = true, .fractions = true};

OutputFacts output(QSize mode, QSize points = {}, const QString &connector = u"DP-1"_s) {
    OutputFacts facts;
    facts.words = {u"ACM"_s, u"P27"_s, u"XY12"_s, connector};
    facts.mode = mode;
    if (points.isValid()) {
        facts.logicalSize = points;
    }
    return facts;
}

Screen screenOf(const OutputFacts &facts, const ScalingAbilities &abilities = kAnyScale) {
    return screensOf({facts}, abilities).front().value_or(Screen());
}

} // namespace

TEST(OutputScreens, areInPointsAndKnowTheirPixels) {
    OutputFacts facts = output({1920, 1080}, {1280, 720});
    facts.logicalPosition = QPoint(1280, 20);
    const Screen screen = screenOf(facts);
    EXPECT_EQ(screen.frame, QRectF(1280, 20, 1280, 720));
    EXPECT_EQ(screen.visibleFrame, screen.frame);
    EXPECT_EQ(screen.scale, 1.5);
    EXPECT_EQ(screen.deviceFrame, QRect(1280, 20, 1920, 1080));
}

TEST(OutputScreens, haveTheIdentityTheNumberAndTheNameOfTheirDisplay) {
    const Screen screen = screenOf(output({1920, 1080}));
    EXPECT_EQ(screen.persistentID, u"ACM P27 XY12"_s);
    EXPECT_EQ(screen.displayID, connectorNumber(u"DP-1"_s));
    EXPECT_EQ(screen.name, u"P27"_s);
    EXPECT_EQ(screen.connector, u"DP-1"_s);
}

TEST(OutputScreens, goByTheRoundedScaleWhereTheirSizeInPointsIsNotTold) {
    OutputFacts facts = output({3840, 2160});
    facts.scale = 2;
    facts.position = {10, 20};
    EXPECT_EQ(screenOf(facts).frame, QRectF(10, 20, 1920, 1080));
    EXPECT_EQ(screenOf(facts).scale, 2);
    facts.logicalSize = QSize(0, 0);
    EXPECT_EQ(screenOf(facts).frame, QRectF(10, 20, 1920, 1080));
    facts.logicalSize = QSize(50000, 1080);
    EXPECT_EQ(screenOf(facts).frame, QRectF(10, 20, 1920, 1080));
    facts.scale = 0;
    EXPECT_EQ(screenOf(facts).frame, QRectF(10, 20, 3840, 2160));
}

TEST(OutputScreens, areTurnedWithTheirPanel) {
    for (const int transform : {1, 3, 5, 7}) {
        OutputFacts facts = output({1920, 1080}, {540, 960});
        facts.transform = transform;
        EXPECT_EQ(screenOf(facts).deviceFrame.size(), QSize(1080, 1920)) << transform;
        EXPECT_EQ(screenOf(facts).scale, 2) << transform;
    }
    for (const int transform : {0, 2, 4, 6}) {
        OutputFacts facts = output({1920, 1080});
        facts.transform = transform;
        EXPECT_EQ(screenOf(facts).frame.size(), QSizeF(1920, 1080)) << transform;
    }
}

TEST(OutputScreens, leaveNoPixelUnpaintedWhereTheSizeInPointsIsRounded) {
    for (const double scale : {1.1, 1.25, 1.33, 1.5, 1.75, 2.25}) {
        const QSize panel(1366, 768);
        const QSize points(static_cast<int>(panel.width() / scale),
                           static_cast<int>(panel.height() / scale));
        const Screen screen = screenOf(output(panel, points));
        EXPECT_GE(screen.frame.width() * screen.scale, panel.width() - 1e-6) << scale;
        EXPECT_GE(screen.frame.height() * screen.scale, panel.height() - 1e-6) << scale;
        EXPECT_NEAR(screen.scale, scale, 0.01);
    }
}

TEST(OutputScreens, arePaintedLargerWhereTheCompositorKnowsWholeFactorsOnly) {
    const Screen screen = screenOf(output({1920, 1080}, {1280, 720}), {.integers = true});
    EXPECT_EQ(screen.deviceFrame.size(), QSize(2560, 1440));
    EXPECT_EQ(screen.scale, 2);
}

TEST(OutputScreens, areNotMadeOfOutputsThatShowNothing) {
    const auto screens = screensOf(
        {output({}), output({0, 1080}), output({1920, 1080}), output({40000, 1080})}, kAnyScale);
    ASSERT_EQ(screens.size(), 4U);
    EXPECT_FALSE(screens[0]);
    EXPECT_FALSE(screens[1]);
    EXPECT_TRUE(screens[2]);
    EXPECT_FALSE(screens[3]);
}

TEST(OutputScreens, ofMirrorsHaveOneFrame) {
    const auto screens = screensOf(
        {output({1920, 1080}, {1280, 720}, u"DP-1"_s), output({1280, 720}, {1280, 720}, u"DP-2"_s)},
        kAnyScale);
    EXPECT_EQ(screens[0]->frame, screens[1]->frame);
    EXPECT_NE(screens[0]->persistentID, screens[1]->persistentID);
}

TEST(OutputScreens, ofMirrorsTheSharpestStaysAndOfEquallySharpOnesTheFirst) {
    auto screens = screensOf({output({1280, 720}, {1280, 720}, u"DP-1"_s),
                              output({1920, 1080}, {1280, 720}, u"DP-2"_s),
                              output({1920, 1080}, {1280, 720}, u"DP-3"_s), output({}),
                              output({1280, 800}, {1280, 800}, u"DP-4"_s)},
                             kAnyScale);
    leaveOutMirrors(screens);
    ASSERT_EQ(screens.size(), 5U);
    EXPECT_FALSE(screens[0]);
    ASSERT_TRUE(screens[1]);
    EXPECT_EQ(screens[1]->connector, u"DP-2"_s);
    EXPECT_FALSE(screens[2]);
    EXPECT_FALSE(screens[3]);
    EXPECT_TRUE(screens[4]) << "it shows more";
}

} // namespace zeph
