// SPDX-License-Identifier: MIT
#include "adapters/places/CityLister.h"
#include "adapters/places/PlaceLine.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <vector>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

/// A place on the globe and how it is called: "city, country", a country, or a water.
struct KnownPlace {
    const char *where;
    Coordinate position;
    const char *name;
};

const std::vector<KnownPlace> knownPlaces{
    // Cities, some of them near a coast or a border.
    {"Berlin", {52.52, 13.405}, "Berlin, Germany"},
    {"Potsdam", {52.39, 13.06}, "Berlin, Germany"},
    {"Lisbon", {38.72, -9.14}, "Lisbon, Portugal"},
    {"Reykjavik", {64.13, -21.9}, "Reykjavík, Iceland"},
    {"Tokyo", {35.68, 139.69}, "Tokyo, Japan"},
    {"Sydney", {-33.87, 151.21}, "Sydney, Australia"},
    {"Cape Town", {-33.92, 18.42}, "Cape Town, South Africa"},
    {"Montevideo", {-34.9, -56.16}, "Montevideo, Uruguay"},
    {"Singapore", {1.35, 103.82}, "Singapore, Singapore"},
    {"Nairobi", {-1.29, 36.82}, "Nairobi, Kenya"},
    // Deserts, forests and ice.
    {"the Sahara", {23.5, 10.5}, "Algeria"},
    {"the Libyan desert", {28, 16.5}, "Libya"},
    {"the middle of the Sudan", {16, 29}, "Sudan"},
    {"the Congo basin", {-3, 23}, "Democratic Republic of the Congo"},
    {"Tibet", {32, 86}, "China"},
    {"the north of Siberia", {73, 110}, "Russia"},
    {"the Empty Quarter", {20, 50}, "Saudi Arabia"},
    {"the Great Victoria Desert", {-28, 127}, "Australia"},
    {"central Siberia", {64, 95}, "Russia"},
    {"the Gobi", {43.5, 104}, "Mongolia"},
    {"the Amazon basin", {-4.5, -65}, "Brazil"},
    {"the ice of Greenland", {72, -40}, "Greenland"},
    {"the east of Antarctica", {-75, 100}, "Antarctica"},
    {"the Ross ice shelf", {-80.5, -175}, "Antarctica"},
    {"northern Quebec", {55.5, -73}, "Canada"},
    // Oceans.
    {"the middle of the Atlantic", {35, -45}, "Atlantic Ocean"},
    {"the South Atlantic", {-30, -15}, "Atlantic Ocean"},
    {"the middle of the Pacific", {0, -140}, "Pacific Ocean"},
    {"the Pacific off Panama", {5, -82}, "Pacific Ocean"},
    {"the Pacific at the date line", {30, 180}, "Pacific Ocean"},
    {"the Pacific just east of it", {30, -179.9}, "Pacific Ocean"},
    {"the Indian Ocean", {-20, 80}, "Indian Ocean"},
    {"the Indian Ocean off Sumatra", {-5, 95}, "Indian Ocean"},
    {"the north pole", {90, 0}, "Arctic Ocean"},
    {"the north pole from the other side", {90, 180}, "Arctic Ocean"},
    {"south of Africa", {-62, 20}, "Southern Ocean"},
    {"south of New Zealand", {-63, -170}, "Southern Ocean"},
    {"the south pole", {-90, 0}, "Amundsen-Scott South Pole Station, Antarctica"},
    // Seas, gulfs and bays.
    {"the Mediterranean", {34, 18}, "Mediterranean Sea"},
    {"the Black Sea", {43, 34}, "Black Sea"},
    {"the North Sea", {56, 3}, "North Sea"},
    {"the Baltic", {56.2, 18.8}, "Baltic Sea"},
    {"the Norwegian Sea", {67, 2}, "Norwegian Sea"},
    {"the Barents Sea", {74, 38}, "Barents Sea"},
    {"the Red Sea", {20, 38.4}, "Red Sea"},
    {"the Arabian Sea", {15, 65}, "Arabian Sea"},
    {"the Bay of Bengal", {14, 87}, "Bay of Bengal"},
    {"the South China Sea", {14, 114.5}, "South China Sea"},
    {"the Sea of Japan", {40, 134.5}, "Sea of Japan"},
    {"the Sea of Okhotsk", {54, 149}, "Sea of Okhotsk"},
    {"the Bering Sea at the date line", {57, 180}, "Bering Sea"},
    {"the Coral Sea", {-17, 153}, "Coral Sea"},
    {"the Tasman Sea", {-38, 160}, "Tasman Sea"},
    {"the Gulf of Mexico", {25, -90}, "Gulf of Mexico"},
    {"the Caribbean", {15, -74}, "Caribbean Sea"},
    {"Hudson Bay", {59, -86}, "Hudson Bay"},
    {"the Gulf of Guinea", {3, 4}, "Gulf of Guinea"},
    {"the Weddell Sea", {-70, -45}, "Weddell Sea"},
    {"the Caspian", {42, 50.5}, "Caspian Sea"},
    // Islands.
    {"the Azores", {37.8, -25.6}, "Ponta Delgada, Portugal"},
    {"Hawaii", {21.3, -157.85}, "Honolulu, United States"},
    {"Fiji, over the date line from the next spot", {-18.13, 178.43}, "Suva, Fiji"},
    {"the sea east of Fiji", {-18.5, -177.5}, "Pacific Ocean"},
    {"Corsica", {41.92, 8.74}, "Ajaccio, France"},
    {"the middle of Madagascar", {-18.9, 47.5}, "Antananarivo, Madagascar"},
};

/// In the words that the station's sentence uses.
QString wordsOf(const std::vector<Placemark> &places) {
    if (places.empty()) {
        return u"nothing"_s;
    }
    const Placemark &place = places.front();
    if (place.locality) {
        return *place.locality + u", "_s + place.country.value_or(u"no country"_s);
    }
    return place.country.value_or(
        place.ocean.value_or(place.inlandWater.value_or(u"a place without a name"_s)));
}

} // namespace

TEST(KnownPlaces, haveTheNamesThatPeopleGiveThem) {
    const std::atomic<bool> isEnding = false;
    QByteArray question;
    for (const KnownPlace &place : knownPlaces) {
        question += positionLine(place.position);
    }
    const auto answer = askCityLister(QStringLiteral(ZEPH_CITY_LISTER), question, isEnding);
    ASSERT_TRUE(answer);
    const QByteArrayList lines = answer->split('\n');
    ASSERT_EQ(lines.size(), static_cast<qsizetype>(knownPlaces.size()) + 1);
    for (std::size_t index = 0; index < knownPlaces.size(); ++index) {
        const auto places = placesIn(lines.at(static_cast<qsizetype>(index)));
        EXPECT_EQ(wordsOf(places), QString::fromUtf8(knownPlaces[index].name))
            << knownPlaces[index].where;
    }
}

} // namespace zeph
