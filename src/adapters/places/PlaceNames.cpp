// SPDX-License-Identifier: MIT
#include "adapters/places/PlaceNames.h"

#include "adapters/places/CityTable.h"
#include "adapters/places/GlobeOutline.h"

#include <cmath>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

// How near a city has to be for its name to stand for the place, in kilometres. Off the land less,
// or no sea between two inhabited coasts would ever be named.
constexpr double reachOnLand = 100;
constexpr double reachAtSea = 50;
constexpr double reachOnALake = 25;
// From here on even the state of the nearest city is a guess, and from there on the country.
constexpr double reachOfAreas = 150;
constexpr double reachOfCountries = 1500;

std::optional<QString> unlessEmpty(const QString &text) {
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

Placemark cityPlace(const NearbyCity &city) {
    Placemark place;
    place.locality = city.name;
    place.administrativeArea = unlessEmpty(city.area);
    place.country = unlessEmpty(city.country);
    return place;
}

std::vector<Placemark> landPlace(const GlobeOutline &area, const std::optional<NearbyCity> &city) {
    Placemark place;
    place.country = unlessEmpty(area.name);
    if (city && city->kilometers <= reachOfCountries && !place.country) {
        place.country = unlessEmpty(city->country);
    }
    if (city && city->kilometers <= reachOfAreas && city->country == place.country) {
        place.administrativeArea = unlessEmpty(city->area);
    }
    return place == Placemark{} ? std::vector<Placemark>() : std::vector{place};
}

Placemark seaPlace(const GlobeOutline *sea) {
    Placemark place;
    place.ocean = sea != nullptr ? sea->name : u"Pacific Ocean"_s;
    return place;
}

/// The same position with a longitude from -180 to 180.
std::optional<Coordinate> normalized(const Coordinate &position) {
    if (!(std::abs(position.latitude) <= 90) || !std::isfinite(position.longitude)) {
        return std::nullopt;
    }
    return Coordinate{position.latitude, std::remainder(position.longitude, 360)};
}

} // namespace

std::vector<Placemark> placesAt(const Coordinate &position, const CityTable &cities,
                                const GlobeOutlines &outlines) {
    const auto spot = normalized(position);
    if (!spot) {
        return {};
    }
    const auto outlineOf = [&](OutlineKind kind) { return outlineAt(outlines, kind, *spot); };
    const auto city = cities.nearest(*spot);
    const GlobeOutline *const lake = outlineOf(OutlineKind::lake);
    const GlobeOutline *const land = outlineOf(OutlineKind::land);
    const double reach = lake != nullptr   ? reachOnALake
                         : land != nullptr ? reachOnLand
                                           : reachAtSea;
    if (city && city->kilometers <= reach) {
        return {cityPlace(*city)};
    }
    if (lake != nullptr) {
        Placemark place;
        place.inlandWater = lake->name;
        return {place};
    }
    if (land != nullptr) {
        const GlobeOutline *const country = outlineOf(OutlineKind::country);
        return landPlace(country != nullptr ? *country : *land, city);
    }
    const GlobeOutline *const sea = outlineOf(OutlineKind::sea);
    return {seaPlace(sea != nullptr ? sea : outlineOf(OutlineKind::ocean))};
}

} // namespace zeph
