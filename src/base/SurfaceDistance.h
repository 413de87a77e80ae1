// SPDX-License-Identifier: MIT
#pragma once

#include "base/Coordinate.h"

namespace zeph {

/// The way along the surface from one position to another, in metres: the great circle on a sphere
/// with the mean radius of the Earth, at most 0.6 % off the true way on the flattened Earth.
double surfaceDistanceMeters(const Coordinate &from, const Coordinate &to);

} // namespace zeph
