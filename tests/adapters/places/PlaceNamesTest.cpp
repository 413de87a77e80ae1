// SPDX-License-Identifier: MIT
#include "adapters/places/PlaceNames.h"

#include "adapters/places/CityTable.h"
#include "adapters/places/OutlinesFile.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <limits>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

// A degree of latitude is 111 km.
const CityTable cities{"40\t-100\tInland\tNebraska\tUnited States\n"
                       "32.4\t-64.7\tHamilton\t\tBermuda\n"
                       "45.8\t-87\tLakeside\tMichigan\tUnited States\n"
                       "65\t-52\tNuuk\t\tGreenland\n"
                       "23\t5\tOasis\t\tAlgeria\n"
                       "40\t65\tCaravan\t\tUzbekistan\n"};

Placemark at(double latitude, double longitude) {
    const auto places = placesAt({latitude, longitude}, cities, outlinesFile());
    return places.size() == 1 ? places.front()
                              : Placemark{.locality = u"not one place"_s,
                                          .administrativeArea = {},
                                          .country = {},
                                          .ocean = {}};
}

Placemark land(std::optional<QString> city, std::optional<QString> area, QString country) {
    Placemark place;
    place.locality = std::move(city);
    place.administrativeArea = std::move(area);
    place.country = std::move(country);
    return place;
}

Placemark water(const QString &ocean) {
    Placemark place;
    place.ocean = ocean;
    return place;
}

} // namespace

TEST(PlaceNames, nameACityWithinAHundredKilometersOnLand) {
    EXPECT_EQ(at(40.88, -100), land(u"Inland"_s, u"Nebraska"_s, u"United States"_s));
}

TEST(PlaceNames, nameTheStateFartherOff) {
    EXPECT_EQ(at(40.95, -100), land(std::nullopt, u"Nebraska"_s, u"United States"_s));
    EXPECT_EQ(at(41.32, -100), land(std::nullopt, u"Nebraska"_s, u"United States"_s));
}

TEST(PlaceNames, nameTheCountryAloneInTheWild) {
    EXPECT_EQ(at(41.4, -100), land(std::nullopt, std::nullopt, u"United States"_s));
    EXPECT_EQ(at(23, 0), land(std::nullopt, std::nullopt, u"Algeria"_s));
}

TEST(PlaceNames, nameTheOnlyCountryOfAnIslandHoweverFarItsTownsAre) {
    EXPECT_EQ(at(80, -40), land(std::nullopt, std::nullopt, u"Greenland"_s));
    EXPECT_EQ(at(-80, 90), land(std::nullopt, std::nullopt, u"Antarctica"_s));
}

TEST(PlaceNames, nameALargeCountryWhateverTownOfAnotherIsNearest) {
    EXPECT_EQ(at(46, 67), land(std::nullopt, std::nullopt, u"Kazakhstan"_s));
    EXPECT_EQ(at(41, 62.5), land(std::nullopt, std::nullopt, u"Uzbekistan"_s));
    EXPECT_EQ(placesAt({46, 67}, CityTable(), outlinesFile()).size(), 1U);
}

TEST(PlaceNames, nameNothingOnLandFarFromEverything) {
    EXPECT_TRUE(placesAt({-10, -60}, cities, outlinesFile()).empty());
}

TEST(PlaceNames, nameAnIslandsTownWithinFiftyKilometersAtSea) {
    EXPECT_EQ(at(32.84, -64.7), land(u"Hamilton"_s, std::nullopt, u"Bermuda"_s));
    EXPECT_EQ(at(32.86, -64.7), water(u"Atlantic Ocean"_s));
}

TEST(PlaceNames, nameALakeUnlessATownIsBesideIt) {
    EXPECT_EQ(at(45.7, -87), land(u"Lakeside"_s, u"Michigan"_s, u"United States"_s));
    Placemark lake;
    lake.inlandWater = u"Lake Michigan"_s;
    EXPECT_EQ(at(44, -87), lake);
}

TEST(PlaceNames, nameSeasWithoutAnyCities) {
    const auto places = placesAt({57, 3}, CityTable(), outlinesFile());
    ASSERT_EQ(places.size(), 1U);
    EXPECT_EQ(places.front(), water(u"North Sea"_s));
    EXPECT_TRUE(placesAt({51, 10}, CityTable(), outlinesFile()).empty());
}

TEST(PlaceNames, nameNothingThatIsNotOnTheGlobe) {
    constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
    for (const Coordinate &position :
         {Coordinate{91, 0}, Coordinate{notANumber, 0}, Coordinate{0, notANumber},
          Coordinate{0, std::numeric_limits<double>::infinity()}}) {
        EXPECT_TRUE(placesAt(position, cities, outlinesFile()).empty());
    }
}

TEST(PlaceNames, takeLongitudesThatGoRoundTheEarth) {
    EXPECT_EQ(at(40, 260), at(40, -100));
    EXPECT_EQ(at(57, 363), water(u"North Sea"_s));
    EXPECT_EQ(at(10, -540), water(u"Pacific Ocean"_s));
}

} // namespace zeph
