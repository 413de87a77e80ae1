// SPDX-License-Identifier: MIT
#pragma once

#include "base/Coordinate.h"
#include "ports/Geocoder.h"

#include <QByteArray>

#include <optional>
#include <vector>

namespace zeph {

/// What goes to and from the program that knows places: a position a line, and for each of them a
/// line of city, area, country, ocean and inland water with tabs between them, empty for a
/// position without a name.

QByteArray positionLine(const Coordinate &position);

/// Absent for a damaged line.
std::optional<Coordinate> positionIn(const QByteArray &line);

QByteArray placeLine(const std::vector<Placemark> &places);

/// One place, or none in an empty or damaged line.
std::vector<Placemark> placesIn(const QByteArray &line);

} // namespace zeph
