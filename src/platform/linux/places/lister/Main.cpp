// SPDX-License-Identifier: MIT

// Prints every city of the weather library, a line each: latitude, longitude, name, state or
// province, and country, with tabs between them. It is a program of its own because
// the library brings twenty others along that a process can't get rid of again.

#include <libgweather/gweather.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

std::string textOf(const char *text) {
    return text == nullptr ? std::string() : std::string(text);
}

/// What is above a city.
struct Region {
    std::string area;
    std::string country;
};

void print(GWeatherLocation *city, const Region &region) {
    const std::string name = textOf(gweather_location_get_english_name(city));
    if (gweather_location_has_coords(city) == 0 || name.empty()) {
        return;
    }
    double latitude = 0;
    double longitude = 0;
    gweather_location_get_coords(city, &latitude, &longitude);
    // Some names are followed by that of the airport, behind a comma.
    std::printf("%.4f\t%.4f\t%s\t%s\t%s\n", latitude, longitude,
                name.substr(0, name.find(',')).c_str(), region.area.c_str(),
                region.country.c_str());
}

void list(GWeatherLocation *location, Region region) {
    const GWeatherLocationLevel level = gweather_location_get_level(location);
    if (level == GWEATHER_LOCATION_CITY) {
        print(location, region);
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
        list(child, region);
    }
}

} // namespace

int main() {
    GWeatherLocation *const world = gweather_location_get_world();
    if (world == nullptr) {
        return EXIT_FAILURE;
    }
    list(world, {});
    // Nothing is freed, not even by the libraries: the process ends here.
    std::_Exit(std::fflush(stdout) == 0 ? EXIT_SUCCESS : EXIT_FAILURE);
}
