// SPDX-License-Identifier: MIT
#include "services/ambient/SolarCalculator.h"

#include "ports/Calendar.h"

#include <cmath>
#include <numbers>

namespace zeph::SolarCalculator {

namespace {

constexpr double secondsPerDay = 86400;

/// The cosine of 90.833 degrees: half the sun's disc and the usual refraction below the horizon.
constexpr double cosZenith = -0.01453808050249674;

double radians(double degrees) {
    return degrees * std::numbers::pi / 180;
}
double degrees(double radians) {
    return radians * 180 / std::numbers::pi;
}

/// Into 0 to `span`.
double wrapped(double value, double span) {
    const double rest = std::fmod(value, span);
    return rest < 0 ? rest + span : rest;
}

/// The hour of the event in UTC, 0 to 24.
std::optional<double> universalHour(bool rise, const Coordinate &coordinate, double dayOfYear) {
    const double latitude = radians(coordinate.latitude);
    const double longitudeHour = coordinate.longitude / 15;
    const double t = dayOfYear + ((rise ? 6 : 18) - longitudeHour) / 24;

    const double meanAnomaly = 0.9856 * t - 3.289;
    const double longitude = wrapped(meanAnomaly + 1.916 * std::sin(radians(meanAnomaly)) +
                                         0.02 * std::sin(radians(2 * meanAnomaly)) + 282.634,
                                     360);
    const double sinDeclination = 0.39782 * std::sin(radians(longitude));
    const double cosDeclination = std::cos(std::asin(sinDeclination));
    const double cosHourAngle =
        (cosZenith - sinDeclination * std::sin(latitude)) / (cosDeclination * std::cos(latitude));
    if (!(std::abs(cosHourAngle) <= 1)) { // NaN too
        return std::nullopt;
    }

    double ascension = wrapped(degrees(std::atan(0.91764 * std::tan(radians(longitude)))), 360);
    ascension += std::floor(longitude / 90) * 90 - std::floor(ascension / 90) * 90;
    const double angle = degrees(std::acos(cosHourAngle));
    const double hourAngle = (rise ? 360 - angle : angle) / 15;
    const double localMeanTime = ascension / 15 + hourAngle + t * -0.06571 + -6.622;
    return wrapped(localMeanTime - longitudeHour, 24);
}

/// Moves `event` by whole days into the local day of `date`.
Date normalised(Date event, Date date, const Calendar &calendar) {
    const Date start = calendar.startOfDay(date);
    const auto end = calendar.adding(CalendarUnit::day, 1, start);
    if (!end) {
        return event;
    }
    while (event < start) {
        event = event + secondsPerDay;
    }
    while (event >= *end) {
        event = event - secondsPerDay;
    }
    return event;
}

} // namespace

std::optional<Date> sunEvent(bool rise, const Coordinate &coordinate, Date date,
                             const Calendar &calendar) {
    const double dayOfYear = calendar.dayOfYear(date).value_or(1);
    const auto hours = universalHour(rise, coordinate, dayOfYear);
    if (!hours) {
        return std::nullopt;
    }
    const int hour = static_cast<int>(*hours);
    const int minute = static_cast<int>((*hours - hour) * 60);
    const DateComponents local = calendar.components(date);
    return calendar.dateInUTC({.year = local.year,
                               .month = local.month,
                               .day = local.day,
                               .hour = hour,
                               .minute = minute,
                               .second = 0});
}

SolarInfo solar(const Coordinate &coordinate, Date date, const Calendar &calendar) {
    SolarInfo info;
    info.sunrise = sunEvent(true, coordinate, date, calendar);
    if (info.sunrise) {
        info.sunrise = normalised(*info.sunrise, date, calendar);
    }
    info.sunset = sunEvent(false, coordinate, date, calendar);
    if (info.sunset) {
        info.sunset = normalised(*info.sunset, date, calendar);
    }
    info.daylightFraction = daylightFraction(date, info.sunrise, info.sunset);
    return info;
}

double daylightFraction(Date now, const std::optional<Date> &sunrise,
                        const std::optional<Date> &sunset) {
    if (!sunrise || !sunset || !(*sunset > *sunrise) || now < *sunrise || now > *sunset) {
        return 0;
    }
    const double progress = (now - *sunrise) / (*sunset - *sunrise);
    return std::sin(progress * std::numbers::pi);
}

} // namespace zeph::SolarCalculator
