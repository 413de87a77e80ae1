// SPDX-License-Identifier: MIT
#include "adapters/places/GeoClueValues.h"

#include "adapters/places/GeoClueSession.h"

#include <gtest/gtest.h>

#include <limits>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

std::optional<Coordinate> position(const QVariant &latitude, const QVariant &longitude) {
    return positionIn({{u"Latitude"_s, latitude}, {u"Longitude"_s, longitude}});
}

} // namespace

TEST(GeoClueValues, keepNoPositionFinerThanATown) {
    EXPECT_EQ(position(38.71667, -9.13333), (Coordinate{38.72, -9.13}));
    EXPECT_EQ(position(-90.0, 180.0), (Coordinate{-90, 180}));
}

TEST(GeoClueValues, believeNoPositionOutsideTheGlobe) {
    EXPECT_EQ(position(90.1, 0.0), std::nullopt);
    EXPECT_EQ(position(0.0, -180.1), std::nullopt);
    EXPECT_EQ(position(std::numeric_limits<double>::quiet_NaN(), 0.0), std::nullopt);
    EXPECT_EQ(position(0.0, std::numeric_limits<double>::infinity()), std::nullopt);
    EXPECT_EQ(position(u"38"_s, 1.0), std::nullopt);
    EXPECT_EQ(positionIn({{u"Latitude"_s, 1.0}}), std::nullopt);
    EXPECT_EQ(positionIn({}), std::nullopt);
}

TEST(GeoClueValues, tellARefusalFromAnAbsence) {
    EXPECT_EQ(failureOf(u"org.freedesktop.DBus.Error.AccessDenied"_s), GeoClueFailure::refused);
    EXPECT_EQ(failureOf(u"org.freedesktop.DBus.Error.ServiceUnknown"_s), GeoClueFailure::absent);
    EXPECT_EQ(failureOf(u"org.freedesktop.DBus.Error.Spawn.ExecFailed"_s), GeoClueFailure::absent);
    EXPECT_EQ(failureOf(u"org.freedesktop.systemd1.UnitMasked"_s), GeoClueFailure::absent);
    EXPECT_EQ(failureOf(u"org.freedesktop.DBus.Error.NoReply"_s), GeoClueFailure::lost);
    EXPECT_EQ(failureOf(QString()), GeoClueFailure::lost);
}

} // namespace zeph
