// SPDX-License-Identifier: MIT
#include "platform/linux/places/GlobeOutline.h"

#include "platform/linux/places/CountryOutlines.h"
#include "platform/linux/places/LandOutlines.h"
#include "platform/linux/places/SeaOutlines.h"
#include "platform/linux/places/WaterOutlines.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace zeph {

namespace {

constexpr Coordinate triangleCorners[] = {{0, 0}, {10, 0}, {0, 10}};
constexpr Coordinate overTheDateLine[] = {{0, 170}, {10, 170}, {10, 190}, {0, 190}};
constexpr Coordinate cap[] = {{80, -180}, {90, -180}, {90, 180}, {80, 180}};
constexpr GlobeOutline outlines[] = {
    {"triangle", triangleCorners}, {"date line", overTheDateLine}, {"cap", cap}};

std::string nameAt(double latitude, double longitude) {
    const GlobeOutline *const outline = outlineAt(outlines, {latitude, longitude});
    return outline == nullptr ? std::string() : outline->name;
}

std::vector<std::span<const GlobeOutline>> everyTable() {
    return {landOutlines(), countryOutlines(), seaOutlines(), oceanOutlines(), lakeOutlines()};
}

/// Whether the ways a-b and c-d cross between their ends.
bool cross(const Coordinate &a, const Coordinate &b, const Coordinate &c, const Coordinate &d) {
    const auto side = [](const Coordinate &p, const Coordinate &q, const Coordinate &r) {
        return (q.longitude - p.longitude) * (r.latitude - p.latitude) -
               (q.latitude - p.latitude) * (r.longitude - p.longitude);
    };
    return side(a, b, c) * side(a, b, d) < 0 && side(c, d, a) * side(c, d, b) < 0;
}

bool isSimple(std::span<const Coordinate> corners) {
    const std::size_t count = corners.size();
    for (std::size_t first = 0; first < count; ++first) {
        for (std::size_t second = first + 1; second < count; ++second) {
            if (cross(corners[first], corners[(first + 1) % count], corners[second],
                      corners[(second + 1) % count])) {
                return false;
            }
        }
    }
    return true;
}

} // namespace

TEST(GlobeOutline, tellsInsideFromOutside) {
    EXPECT_EQ(nameAt(4, 4), "triangle");
    EXPECT_EQ(nameAt(6, 6), "");
    EXPECT_EQ(nameAt(-1, 1), "");
    EXPECT_EQ(nameAt(1, -1), "");
}

TEST(GlobeOutline, goesOnBeyondTheDateLine) {
    EXPECT_EQ(nameAt(5, 175), "date line");
    EXPECT_EQ(nameAt(5, -175), "date line");
    EXPECT_EQ(nameAt(5, 180), "date line");
    EXPECT_EQ(nameAt(5, -180), "date line");
    EXPECT_EQ(nameAt(5, -169), "");
}

TEST(GlobeOutline, holdsThePole) {
    for (const double longitude : {-180.0, -90.0, 0.0, 90.0, 180.0}) {
        EXPECT_EQ(nameAt(90, longitude), "cap") << longitude;
    }
    EXPECT_EQ(nameAt(-90, 0), "");
}

TEST(GlobeOutline, isASimplePolygonOnTheGlobeInEveryTable) {
    for (const auto table : everyTable()) {
        for (const GlobeOutline &outline : table) {
            EXPECT_GE(outline.corners.size(), 3U) << outline.name;
            EXPECT_TRUE(isSimple(outline.corners)) << outline.name;
            for (const Coordinate &corner : outline.corners) {
                EXPECT_LE(std::abs(corner.latitude), 90) << outline.name;
                EXPECT_GE(corner.longitude, -180) << outline.name;
                EXPECT_LT(corner.longitude, 360) << outline.name;
            }
        }
    }
}

TEST(GlobeOutline, namesFiveOceansAndDozensOfSeasOnce) {
    std::set<std::string> names{"Pacific Ocean"};
    for (const GlobeOutline &ocean : oceanOutlines()) {
        EXPECT_TRUE(names.insert(ocean.name).second) << ocean.name;
    }
    EXPECT_EQ(names.size(), 5U);
    for (const GlobeOutline &sea : seaOutlines()) {
        EXPECT_TRUE(names.insert(sea.name).second) << sea.name;
    }
    EXPECT_GT(names.size(), 5U + 60U);
}

} // namespace zeph
