// SPDX-License-Identifier: MIT
#pragma once

#include "base/Coordinate.h"

#include <QByteArrayView>

#include <optional>

namespace zeph {

/// A position as the time zone tables write it: ±DD±DDD, ±DDMM±DDDMM or ±DDMMSS±DDDMMSS, latitude
/// first. Absent for anything else, and for what lies beyond the poles or the date line.
std::optional<Coordinate> parseTablePosition(QByteArrayView text);

/// The position of the principal city of `zone` in a table such as zone1970.tab or zone.tab: tabs
/// between countries, position, zone and remarks. Comments and damaged lines are passed over.
std::optional<Coordinate> principalCity(QByteArrayView table, QByteArrayView zone);

} // namespace zeph
