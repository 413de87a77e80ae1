// SPDX-License-Identifier: MIT
#include "adapters/session/x11/WorkAreas.h"

#include <gtest/gtest.h>

#include <limits>

namespace zeph {

namespace {

const QRect kLeft(0, 0, 1280, 800);
const QRect kRight(1280, 0, 1024, 768);
// As GNOME tells them of these two monitors, with its panel on the first.
const std::vector<std::uint32_t> kToldByGnome{0, 32, 1280, 768, 1280, 0, 1024, 768};

} // namespace

TEST(WorkAreas, areFourNumbersEach) {
    EXPECT_EQ(rectanglesIn(kToldByGnome),
              (std::vector{QRect(0, 32, 1280, 768), QRect(1280, 0, 1024, 768)}));
    EXPECT_TRUE(rectanglesIn({}).empty());
    EXPECT_TRUE(rectanglesIn({0, 32, 1280}).empty());
    EXPECT_EQ(rectanglesIn({0, 32, 1280, 768, 1280, 0, 1024}).size(), 1U);
}

TEST(WorkAreas, mayLieLeftOfTheOriginAndAboveIt) {
    const auto minus = [](int number) { return static_cast<std::uint32_t>(-number); };
    EXPECT_EQ(rectanglesIn({minus(1280), minus(20), 1280, 800}),
              std::vector{QRect(-1280, -20, 1280, 800)});
}

TEST(WorkAreas, leaveOutWhatNoScreenCanHold) {
    constexpr auto wild = std::numeric_limits<std::uint32_t>::max();
    constexpr std::uint32_t large = std::numeric_limits<std::int32_t>::max();
    EXPECT_TRUE(rectanglesIn({large, 0, 10, 10}).empty());
    EXPECT_TRUE(rectanglesIn({0, large, 10, 10}).empty());
    EXPECT_TRUE(rectanglesIn({0, 0, large, 10}).empty());
    EXPECT_TRUE(rectanglesIn({0, 0, 10, wild}).empty());
    EXPECT_TRUE(rectanglesIn({0, 0, 0, 10}).empty());
    EXPECT_EQ(rectanglesIn({wild, wild, wild, wild, 0, 0, 65535, 65535}),
              std::vector{QRect(0, 0, 65535, 65535)});
}

TEST(WorkAreas, belongToTheMonitorThatTheyLieOn) {
    const auto areas = rectanglesIn(kToldByGnome);
    EXPECT_EQ(areaOn(kLeft, areas), QRect(0, 32, 1280, 768));
    EXPECT_EQ(areaOn(kRight, areas), QRect(1280, 0, 1024, 768));
    EXPECT_EQ(areaOn({2304, 0, 800, 600}, areas), std::nullopt);
    EXPECT_EQ(areaOn(kLeft, {}), std::nullopt);
}

TEST(WorkAreas, belongWhereMostOfThemLiesWhereMonitorsOverlap) {
    const QRect low(0, 400, 1280, 800);
    const std::vector areas{QRect(0, 0, 1280, 790), QRect(0, 410, 1280, 790)};
    EXPECT_EQ(areaOn(low, areas), QRect(0, 410, 1280, 790));
    EXPECT_EQ(areaOn({0, 0, 1280, 800}, areas), QRect(0, 0, 1280, 790));
}

TEST(WorkAreas, endAtTheEdgesOfTheMonitor) {
    EXPECT_EQ(areaOn(kLeft, {QRect(0, 32, 2304, 768)}), QRect(0, 32, 1280, 768));
    EXPECT_EQ(areaOn(kLeft, {QRect(-5, 32, 65535, 65535)}), QRect(0, 32, 1280, 768));
}

} // namespace zeph
