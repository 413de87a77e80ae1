// SPDX-License-Identifier: MIT
#include "golden/GoldenImage.h"
#include "ui/controls/OneOfEach.h"

#include <QGuiApplication>

#include <gtest/gtest.h>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

// Before there is an application object, which reads it.
const bool isFine = qputenv("QT_SCALE_FACTOR", "1.5");

constexpr GoldenOptions letters{.channelTolerance = 3, .allowedPixels = 12};

} // namespace

TEST(FineControlsGolden, atOneAndAHalfPixelsAPoint) {
    ASSERT_TRUE(isFine);
    ASSERT_EQ(qApp->devicePixelRatio(), 1.5);
    EXPECT_TRUE(matchesGolden(oneOfEach(Appearance::light, 1, false), u"controls-fine"_s, letters));
    EXPECT_TRUE(
        matchesGolden(oneOfEach(Appearance::dark, 1, true), u"controls-fine-mirrored"_s, letters));
}

} // namespace zeph::ui
