// SPDX-License-Identifier: MIT
#include "adapters/places/GlobeOutline.h"

#include "adapters/places/OutlinesFile.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace zeph {

namespace {

const GlobeOutlines outlines = parseOutlines("sea\ttriangle\t0,0 10,0 0,10\n"
                                             "sea\tdate line\t0,170 10,170 10,190 0,190\n"
                                             "sea\tcap\t80,-180 90,-180 90,180 80,180\n"
                                             "lake\tabove\t0,0 10,0 0,10\n");

std::string nameAt(double latitude, double longitude, OutlineKind kind = OutlineKind::sea) {
    const GlobeOutline *const outline = outlineAt(outlines, kind, {latitude, longitude});
    return outline == nullptr ? std::string() : outline->name.toStdString();
}

/// Whether the ways a-b and c-d cross between their ends.
bool cross(const Coordinate &a, const Coordinate &b, const Coordinate &c, const Coordinate &d) {
    const auto side = [](const Coordinate &p, const Coordinate &q, const Coordinate &r) {
        return (q.longitude - p.longitude) * (r.latitude - p.latitude) -
               (q.latitude - p.latitude) * (r.longitude - p.longitude);
    };
    return side(a, b, c) * side(a, b, d) < 0 && side(c, d, a) * side(c, d, b) < 0;
}

bool isSimple(const std::vector<Coordinate> &corners) {
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

TEST(GlobeOutline, isLookedUpAmongItsKind) {
    EXPECT_EQ(nameAt(4, 4, OutlineKind::lake), "above");
    EXPECT_EQ(nameAt(4, 4, OutlineKind::ocean), "");
}

TEST(GlobeOutline, isLeftOutWhereItsLineIsDamaged) {
    EXPECT_TRUE(parseOutlines("").empty());
    EXPECT_TRUE(parseOutlines("# sea\nsea\nsea\tname\npond\tname\t0,0 10,0 0,10\n").empty());
    for (const char *corners : {"", "0,0 10,0", "0,0 10,0 0", "0,0 10,0 0,x", "0,0 10,0 91,0",
                                "0,0 10,0 0,361", "0,0 10,0 nan,0", "0,0  10,0 0,10"}) {
        EXPECT_TRUE(parseOutlines(QByteArray("sea\tname\t") + corners).empty()) << corners;
    }
    EXPECT_EQ(parseOutlines("sea\tname\tx\nsea\t\t0,0 10,0 0,10").size(), 1U);
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

TEST(GlobeOutline, isASimplePolygonOnTheGlobeInTheWholeFile) {
    ASSERT_EQ(outlinesFile().size(), 5U);
    for (const auto &[kind, table] : outlinesFile()) {
        for (const GlobeOutline &outline : table) {
            EXPECT_TRUE(isSimple(outline.corners)) << outline.name.toStdString();
            for (const Coordinate &corner : outline.corners) {
                EXPECT_GE(corner.longitude, -180) << outline.name.toStdString();
                EXPECT_LT(corner.longitude, 360) << outline.name.toStdString();
            }
        }
    }
}

TEST(GlobeOutline, isReadFromEveryLineOfTheFile) {
    QFile file(QStringLiteral(ZEPH_OUTLINES));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    std::size_t lines = 0;
    for (const QByteArray &line : file.readAll().split('\n')) {
        lines += line.isEmpty() || line.startsWith('#') ? 0 : 1;
    }
    std::size_t read = 0;
    for (const auto &[kind, table] : outlinesFile()) {
        read += table.size();
    }
    EXPECT_EQ(read, lines);
}

TEST(GlobeOutline, namesFiveOceansAndDozensOfSeasOnce) {
    std::set<QString> names{QStringLiteral("Pacific Ocean")};
    for (const GlobeOutline &ocean : outlinesFile().at(OutlineKind::ocean)) {
        EXPECT_TRUE(names.insert(ocean.name).second) << ocean.name.toStdString();
    }
    EXPECT_EQ(names.size(), 5U);
    for (const GlobeOutline &sea : outlinesFile().at(OutlineKind::sea)) {
        EXPECT_TRUE(names.insert(sea.name).second) << sea.name.toStdString();
    }
    EXPECT_GT(names.size(), 5U + 60U);
}

} // namespace zeph
