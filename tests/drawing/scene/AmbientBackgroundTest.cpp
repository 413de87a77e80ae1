// SPDX-License-Identifier: MIT
#include "drawing/scene/AmbientBackground.h"

#include <gtest/gtest.h>

#include <cmath>

namespace zeph {

namespace {

AmbientBackground still() {
    return AmbientBackground::still(Palette::forMood(0, FocusState::off));
}

} // namespace

TEST(AmbientBackground, stillPictureHasTimeZeroAndItsOwnEnergy) {
    const Palette palette = Palette::forMood(0.4, FocusState::off);
    const AmbientBackground background = AmbientBackground::still(palette);
    EXPECT_EQ(background.time, 0);
    EXPECT_EQ(background.energy, 0.3);
    EXPECT_EQ(background.top, palette.top);
    EXPECT_EQ(background.bottom, palette.bottom);
    EXPECT_EQ(background.accent, palette.accent);
}

TEST(AmbientBackground, firstDiscOfTheStillPicture) {
    // Phase 0 at time 0: the sine is 0 and the cosine 1, so it breathes in the middle.
    const SoftDisc disc = softDisc(still(), 0, 1000, 500);
    EXPECT_NEAR(disc.radius, 500 * 0.55 * (0.5 * 0.15 + 0.85), 1e-9);
    EXPECT_NEAR(disc.centerX, 280, 1e-9);
    EXPECT_NEAR(disc.centerY, 500 * 0.32 + 500 * 0.05, 1e-9);
    EXPECT_NEAR(disc.alpha, 0.3 * 0.12 + 0.22, 1e-12);
}

TEST(AmbientBackground, discsAreMeasuredByTheSmallerSide) {
    for (int index = 0; index < softDiscCount; ++index) {
        const double radius = softDisc(still(), index, 1000, 500).radius;
        EXPECT_EQ(softDisc(still(), index, 500, 1000).radius, radius);
        EXPECT_EQ(softDisc(still(), index, 500, 500).radius, radius);
    }
}

TEST(AmbientBackground, theOtherDiscsAreShiftedByTheirPhases) {
    const SoftDisc second = softDisc(still(), 1, 1000, 500);
    const double breathing = (std::sin(2.1) * 0.5 + 0.5) * 0.15 + 0.85;
    EXPECT_NEAR(second.radius, 500 * 0.42 * breathing, 1e-9);
    EXPECT_NEAR(second.centerX, 720 + std::sin(2.1) * 60, 1e-9);
    EXPECT_NEAR(second.centerY, 200 + std::cos(2.1) * 25, 1e-9);
    const SoftDisc third = softDisc(still(), 2, 1000, 500);
    EXPECT_NEAR(third.centerX, 520 + std::sin(4.3) * 60, 1e-9);
    EXPECT_NEAR(third.centerY, 350 + std::cos(4.3) * 25, 1e-9);
}

TEST(AmbientBackground, timeAndEnergyMoveTheDiscs) {
    const Palette palette = Palette::forMood(0, FocusState::off);
    const SoftDisc disc = softDisc(AmbientBackground::animated(palette, 0.8, 7), 0, 1000, 500);
    const double drift = (0.8 * 0.25 + 0.12) * 7;
    const double breath = (0.8 * 0.5 + 0.4) * 7;
    EXPECT_NEAR(disc.radius, 500 * 0.55 * ((std::sin(breath) * 0.5 + 0.5) * 0.15 + 0.85), 1e-9);
    EXPECT_NEAR(disc.centerX, 280 + std::sin(drift) * 60, 1e-9);
    EXPECT_NEAR(disc.centerY, 160 + std::cos(drift) * 25, 1e-9);
    EXPECT_NEAR(disc.alpha, 0.8 * 0.12 + 0.22, 1e-12);
}

} // namespace zeph
