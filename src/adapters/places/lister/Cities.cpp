// SPDX-License-Identifier: MIT

#include "adapters/places/lister/Cities.h"

#include <libgweather/gweather.h>

#include <array>
#include <cstdio>

namespace zeph {

namespace {

std::string textOf(const char *text) {
    return text == nullptr ? std::string() : std::string(text);
}

/// What is above a city.
struct Region {
    std::string area;
    std::string country;
};

void add(GWeatherLocation *city, const Region &region, std::string &lines) {
    const std::string name = textOf(gweather_location_get_english_name(city));
    if (gweather_location_has_coords(city) == 0 || name.empty()) {
        return;
    }
    double latitude = 0;
    double longitude = 0;
    gweather_location_get_coords(city, &latitude, &longitude);
    std::array<char, 64> position{};
    std::snprintf(position.data(), position.size(), "%.4f\t%.4f", latitude, longitude);
    // Some names are followed by that of the airport, behind a comma.
    lines.append(position.data()).append("\t").append(name, 0, name.find(',')).append("\t");
    lines.append(region.area).append("\t").append(region.country).append("\n");
}

void list(GWeatherLocation *location, Region region, std::string &lines) {
    const GWeatherLocationLevel level = gweather_location_get_level(location);
    if (level == GWEATHER_LOCATION_CITY) {
        add(location, region, lines);
        return;
    }
    if (level == GWEATHER_LOCATION_COUNTRY) {
        region.country = textOf(gweather_location_get_english_name(location));
    } else if (level == GWEATHER_LOCATION_ADM1) {
        region.area = textOf(gweather_location_get_english_name(location));
    }
    // Each call gives the former child back.
    GWeatherLocation *child = nullptr;
    while ((child = gweather_location_next_child(location, child)) != nullptr) {
        list(child, region, lines);
    }
}

} // namespace

std::string listCities() {
    std::string lines;
    // Not freed: the process ends soon.
    if (GWeatherLocation *const world = gweather_location_get_world()) {
        list(world, {}, lines);
    }
    return lines;
}

} // namespace zeph
