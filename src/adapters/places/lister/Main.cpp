// SPDX-License-Identifier: MIT

// Reads positions and prints what lies there, a line each (see PlaceLine.h). It is a program of its
// own because the weather library brings twenty others along that a process can't get rid of again.

#include "adapters/places/CityTable.h"
#include "adapters/places/PlaceLine.h"
#include "adapters/places/PlaceNames.h"
#include "adapters/places/lister/Cities.h"

#include <QFile>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>

namespace {

/// Beside this program where it is built, else where an installation puts it.
zeph::GlobeOutlines readOutlines() {
    std::error_code ignored; // without its own place nothing is found, and lands have no names
    const auto folder = std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path();
    for (const char *path : {ZEPH_OUTLINES_FILE, ZEPH_OUTLINES_PATH}) {
        QFile file(QString::fromStdString((folder / path).string()));
        if (file.open(QIODevice::ReadOnly)) {
            return zeph::parseOutlines(file.readAll());
        }
    }
    return {};
}

} // namespace

int main() {
    const zeph::CityTable cities(QByteArray::fromStdString(zeph::listCities()));
    const zeph::GlobeOutlines outlines = readOutlines();
    if (cities.isEmpty() && outlines.empty()) {
        return EXIT_FAILURE;
    }
    std::string line;
    while (std::getline(std::cin, line)) {
        const auto position = zeph::positionIn(QByteArray::fromStdString(line));
        std::cout << zeph::placeLine(position ? zeph::placesAt(*position, cities, outlines)
                                              : std::vector<zeph::Placemark>())
                         .toStdString();
    }
    std::cout.flush();
    // Nothing is freed, not even by the libraries: the process ends here.
    std::_Exit(std::cout ? EXIT_SUCCESS : EXIT_FAILURE);
}
