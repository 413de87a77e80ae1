#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes almanac.csv: sunrise and sunset of some places, as a reference for the tests.

Method, deliberately another one than the program's: the sun's apparent place by the series of
J. Meeus, "Astronomical Algorithms" (chapters 12, 22, 25: apparent sidereal time, main nutation
terms, equation of the centre, aberration), its altitude each ten minutes of the local day, and
bisection to a tenth of a second for the moments when that is -0.833 degrees.
"""
import math
import sys
from datetime import date, datetime, timedelta, timezone
from zoneinfo import ZoneInfo

PLACES = [
    ("London", 51.507, -0.128, "Europe/London"),
    ("Berlin", 52.520, 13.405, "Europe/Berlin"),
    ("Madrid", 40.417, -3.703, "Europe/Madrid"),
    ("New York", 40.713, -74.006, "America/New_York"),
    ("Los Angeles", 34.052, -118.244, "America/Los_Angeles"),
    ("Sao Paulo", -23.551, -46.633, "America/Sao_Paulo"),
    ("Quito", -0.180, -78.468, "America/Guayaquil"),
    ("Cape Town", -33.925, 18.424, "Africa/Johannesburg"),
    ("Nairobi", -1.292, 36.822, "Africa/Nairobi"),
    ("Delhi", 28.614, 77.209, "Asia/Kolkata"),
    ("Singapore", 1.352, 103.820, "Asia/Singapore"),
    ("Tokyo", 35.690, 139.692, "Asia/Tokyo"),
    ("Sydney", -33.869, 151.209, "Australia/Sydney"),
    ("Auckland", -36.848, 174.763, "Pacific/Auckland"),
    ("Suva", -18.141, 178.442, "Pacific/Fiji"),
    ("Honolulu", 21.307, -157.858, "Pacific/Honolulu"),
    ("Kiritimati", 1.872, -157.428, "Pacific/Kiritimati"),
    ("Ushuaia", -54.802, -68.303, "America/Argentina/Ushuaia"),
]
DATES = [date(2024, 1, 1), date(2024, 3, 20), date(2024, 6, 21), date(2024, 9, 22),
         date(2023, 12, 31), date(2024, 12, 31)]


def altitude(seconds, latitude, longitude):
    """Degrees of the sun's centre above the horizon, without refraction."""
    ut = seconds / 86400 + 2440587.5
    t = (ut + 69.2 / 86400 - 2451545) / 36525
    mean_longitude = 280.46646 + 36000.76983 * t + 0.0003032 * t * t
    anomaly = math.radians(357.52911 + 35999.05029 * t - 0.0001537 * t * t)
    centre = ((1.914602 - 0.004817 * t) * math.sin(anomaly)
              + (0.019993 - 0.000101 * t) * math.sin(2 * anomaly)
              + 0.000289 * math.sin(3 * anomaly))
    node = math.radians(125.04452 - 1934.136261 * t)
    moon = math.radians(218.3165 + 481267.8813 * t)
    sun = math.radians(mean_longitude)
    nutation = (-17.20 * math.sin(node) - 1.32 * math.sin(2 * sun)
                - 0.23 * math.sin(2 * moon) + 0.21 * math.sin(2 * node)) / 3600
    tilt = (9.20 * math.cos(node) + 0.57 * math.cos(2 * sun)
            + 0.10 * math.cos(2 * moon) - 0.09 * math.cos(2 * node)) / 3600
    obliquity = math.radians(23.43929111 - 0.013004167 * t + tilt)
    apparent = math.radians(mean_longitude + centre - 0.00569 + nutation)
    ascension = math.atan2(math.cos(obliquity) * math.sin(apparent), math.cos(apparent))
    declination = math.asin(math.sin(obliquity) * math.sin(apparent))
    sidereal = (280.46061837 + 360.98564736629 * (ut - 2451545)
                + nutation * math.cos(obliquity))
    hour_angle = math.radians(sidereal + longitude) - ascension
    phi = math.radians(latitude)
    return math.degrees(math.asin(math.sin(phi) * math.sin(declination)
                                  + math.cos(phi) * math.cos(declination) * math.cos(hour_angle)))


def events(latitude, longitude, zone, day):
    """The first rise and the first set of the local day, in seconds since 1970, or None."""
    def midnight(d):
        return datetime(d.year, d.month, d.day, tzinfo=ZoneInfo(zone)).timestamp()

    def up(seconds):
        return altitude(seconds, latitude, longitude) > -0.833

    found = {True: None, False: None}
    now, end = midnight(day), midnight(day + timedelta(days=1))
    while now < end:
        later = min(now + 600, end)
        if up(now) != up(later):
            low, high = now, later
            while high - low > 0.1:
                middle = (low + high) / 2
                low, high = (middle, high) if up(middle) == up(now) else (low, middle)
            rises = up(later)
            if found[rises] is None:
                found[rises] = high
        now = later
    return found[True], found[False]


def iso(seconds):
    return datetime.fromtimestamp(round(seconds), timezone.utc).strftime("%Y-%m-%dT%H:%M:%SZ")


def main():
    lines = ["# By make_almanac.py: apparent solar place after Meeus, altitude -0.833 by bisection.",
             "# place,latitude,longitude,zone,local day,sunrise,sunset"]
    for name, latitude, longitude, zone in PLACES:
        for day in DATES:
            rise, fall = events(latitude, longitude, zone, day)
            lines.append(f"{name},{latitude},{longitude},{zone},{day},{iso(rise)},{iso(fall)}")
    sys.stdout.write("\n".join(lines) + "\n")


if __name__ == "__main__":
    main()
