// SPDX-License-Identifier: MIT
#pragma once

#include "base/Coordinate.h"
#include "model/SolarInfo.h"

namespace zeph {

class Calendar;

/// Sunrise and sunset by the almanac algorithm, offline and without tables. Pure functions.
namespace SolarCalculator {

/// The sun's events on the local day of `date`, and how far the daylight has come at `date`.
SolarInfo solar(const Coordinate &coordinate, Date date, const Calendar &calendar);

/// One event to the whole minute below, on the calendar's day of `date` but at its hour in UTC,
/// so up to a day off. Absent where the sun does not cross the horizon that day.
std::optional<Date> sunEvent(bool rise, const Coordinate &coordinate, Date date,
                             const Calendar &calendar);

/// An arch from 0 at sunrise over 1 in the middle to 0 at sunset; 0 outside, and 0 without both
/// events in this order.
double daylightFraction(Date now, const std::optional<Date> &sunrise,
                        const std::optional<Date> &sunset);

} // namespace SolarCalculator

} // namespace zeph
