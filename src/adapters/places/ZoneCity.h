// SPDX-License-Identifier: MIT
#pragma once

#include "base/Coordinate.h"

#include <QString>

#include <optional>

namespace zeph {

/// Where the principal city of a time zone lies, by the tables of the machine's time zone data in
/// `folder`. Absent for a zone without a city, such as "Etc/UTC", and where the tables are missing.
/// Reads two short files.
std::optional<Coordinate> zoneCity(const QString &zone,
                                   const QString &folder = QStringLiteral("/usr/share/zoneinfo"));

} // namespace zeph
