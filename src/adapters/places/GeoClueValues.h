// SPDX-License-Identifier: MIT
#pragma once

#include "base/Coordinate.h"

#include <QVariantMap>

#include <optional>

namespace zeph {

enum class GeoClueFailure;

/// What the name of a bus error, or of one of the service, means for a first question.
GeoClueFailure failureOf(const QString &errorName);

/// The position in the properties of a location, no finer than 0.01 degrees: whoever needs to know
/// the town needs not know the house. Absent when it is none.
std::optional<Coordinate> positionIn(const QVariantMap &location);

} // namespace zeph
