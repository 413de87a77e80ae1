// SPDX-License-Identifier: MIT
#include "base/SurfaceDistance.h"

#include <gtest/gtest.h>

#include <vector>

namespace zeph {

namespace {

constexpr Coordinate london{51.5074, -0.1278};
constexpr Coordinate newYork{40.7128, -74.006};

struct KnownPair {
    const char *name;
    Coordinate from;
    Coordinate to;
    double kilometers; // the shortest way on the WGS 84 ellipsoid
};

const std::vector<KnownPair> knownPairs{
    {"Berlin to Paris", {52.52, 13.405}, {48.8566, 2.3522}, 879.7},
    {"London to New York", london, newYork, 5585.2},
    {"New York to Los Angeles", newYork, {34.0522, -118.2437}, 3944.4},
    {"Sydney to Perth", {-33.8688, 151.2093}, {-31.9523, 115.8613}, 3297.3},
    {"Tokyo to San Francisco", {35.6762, 139.6503}, {37.7749, -122.4194}, 8293.4},
    {"Cape Town to Rio", {-33.9249, 18.4241}, {-22.9068, -43.1729}, 6069.4},
    {"Moscow to Singapore", {55.7558, 37.6173}, {1.3521, 103.8198}, 8415.7},
    {"Quito to Nairobi", {-0.1807, -78.4678}, {-1.2921, 36.8219}, 12832.7},
    {"Suva to Apia, over the date line", {-18.1416, 178.4419}, {-13.8333, -171.7667}, 1151.1},
    {"Reykjavik to Anchorage", {64.1466, -21.9426}, {61.2181, -149.9003}, 5439.0},
    {"Auckland to Madrid, nearly opposite", {-36.8485, 174.7633}, {40.4168, -3.7038}, 19587.9},
};

} // namespace

TEST(SurfaceDistance, isWithinHalfAPercentOfTheTrueWay) {
    for (const KnownPair &pair : knownPairs) {
        EXPECT_NEAR(surfaceDistanceMeters(pair.from, pair.to) / 1000.0, pair.kilometers,
                    pair.kilometers * 0.005)
            << pair.name;
    }
}

TEST(SurfaceDistance, isTheSameBothWays) {
    EXPECT_DOUBLE_EQ(surfaceDistanceMeters(london, newYork),
                     surfaceDistanceMeters(newYork, london));
}

TEST(SurfaceDistance, isNothingFromAPlaceToItself) {
    EXPECT_DOUBLE_EQ(surfaceDistanceMeters(london, london), 0.0);
    EXPECT_NEAR(surfaceDistanceMeters({10, 180}, {10, -180}), 0.0, 1e-6);
    EXPECT_NEAR(surfaceDistanceMeters({90, 10}, {90, -120}), 0.0, 1e-6);
}

TEST(SurfaceDistance, tellsMetersApart) {
    EXPECT_NEAR(surfaceDistanceMeters({0, 0}, {0.00001, 0}), 1.112, 0.001);
}

TEST(SurfaceDistance, reachesHalfAroundTheEarth) {
    EXPECT_NEAR(surfaceDistanceMeters({0, 0}, {0, 180}), 20'015'115, 1);
    EXPECT_NEAR(surfaceDistanceMeters({90, 0}, {-90, 0}), 20'015'115, 1);
}

} // namespace zeph
