// SPDX-License-Identifier: MIT
#include "adapters/session/wayland/SurfaceScaling.h"

#include <gtest/gtest.h>

namespace zeph {

namespace {

const ScalingAbilities kNone;
const ScalingAbilities kIntegers{.integers = true};
const ScalingAbilities kAll{.integers = true, .fractions = true};

} // namespace

TEST(SurfaceScaling, asksForNothingWherePixelsArePoints) {
    EXPECT_EQ(surfaceScaling({800, 600}, {800, 600}, kAll), SurfaceScaling());
}

TEST(SurfaceScaling, asksForTheWholeFactorThatFits) {
    EXPECT_EQ(surfaceScaling({1600, 1200}, {800, 600}, kAll), (SurfaceScaling{2, {}}));
    EXPECT_EQ(surfaceScaling({2400, 1800}, {800, 600}, kIntegers), (SurfaceScaling{3, {}}));
}

TEST(SurfaceScaling, asksForTheSizeInPointsWhereNoFactorFits) {
    EXPECT_EQ(surfaceScaling({1920, 1080}, {1280, 720}, kAll),
              (SurfaceScaling{1, QSize(1280, 720)}));
    EXPECT_EQ(surfaceScaling({1600, 1200}, {800, 599}, kAll), (SurfaceScaling{1, QSize(800, 599)}));
    EXPECT_EQ(surfaceScaling({400, 300}, {800, 600}, kAll), (SurfaceScaling{1, QSize(800, 600)}));
}

TEST(SurfaceScaling, neverAsksForAFactorThatDoesNotDivideThePixels) {
    EXPECT_EQ(surfaceScaling({1601, 1201}, {800, 600}, kIntegers), SurfaceScaling());
    EXPECT_EQ(surfaceScaling({1600, 1200}, {640, 480}, kIntegers), SurfaceScaling()) << "by 3";
    EXPECT_EQ(surfaceScaling({1600, 1200}, {700, 500}, kIntegers), (SurfaceScaling{2, {}}));
}

TEST(SurfaceScaling, asksForNothingWhereTheCompositorCantScale) {
    EXPECT_EQ(surfaceScaling({1600, 1200}, {800, 600}, kNone), SurfaceScaling());
}

TEST(SurfaceScaling, takesNoSizeForWhatItIs) {
    EXPECT_EQ(surfaceScaling({}, {800, 600}, kAll), SurfaceScaling());
    EXPECT_EQ(surfaceScaling({800, 600}, {0, 600}, kAll), SurfaceScaling());
}

TEST(PixelsToFill, areThoseOfThePanelWhereAnySizeCanBeShown) {
    EXPECT_EQ(pixelsToFill({1280, 720}, {1920, 1080}, kAll), QSize(1920, 1080));
    EXPECT_EQ(pixelsToFill({3840, 2160}, {1920, 1080}, kAll), QSize(1920, 1080))
        << "scaled by half";
}

TEST(PixelsToFill, areTheNextLargerMultipleWhereFactorsCanBe) {
    EXPECT_EQ(pixelsToFill({1280, 720}, {1920, 1080}, kIntegers), QSize(2560, 1440));
    EXPECT_EQ(pixelsToFill({960, 540}, {1920, 1080}, kIntegers), QSize(1920, 1080));
    EXPECT_EQ(pixelsToFill({683, 384}, {1366, 769}, kIntegers), QSize(1366, 768)) << "rounded";
    EXPECT_EQ(pixelsToFill({3840, 2160}, {1920, 1080}, kIntegers), QSize(3840, 2160));
}

TEST(PixelsToFill, areThePointsWhereNothingIsScaled) {
    EXPECT_EQ(pixelsToFill({1280, 720}, {1920, 1080}, kNone), QSize(1280, 720));
}

} // namespace zeph
