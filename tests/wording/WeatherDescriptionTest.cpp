// SPDX-License-Identifier: MIT
#include "wording/WeatherDescription.h"

#include <gmock/gmock.h>

#include <limits>
#include <map>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const WeatherDescription unknown{u"–"_s, u"cloud.fill"_s};

const std::map<qint64, std::array<QString, 3>> &known() {
    static const std::map<qint64, std::array<QString, 3>> table = [] {
        std::map<qint64, std::array<QString, 3>> rows;
        const auto add = [&rows](std::initializer_list<qint64> codes, const QString &text,
                                 const QString &day, const QString &night) {
            for (const qint64 code : codes) {
                rows[code] = {text, day, night};
            }
        };
        add({0}, u"Clear"_s, u"sun.max.fill"_s, u"moon.stars.fill"_s);
        add({1, 2}, u"Partly cloudy"_s, u"cloud.sun.fill"_s, u"cloud.moon.fill"_s);
        add({3}, u"Overcast"_s, u"cloud.fill"_s, u"cloud.fill"_s);
        add({45, 48}, u"Foggy"_s, u"cloud.fog.fill"_s, u"cloud.fog.fill"_s);
        add({51, 52, 53, 54, 55, 56, 57}, u"Drizzle"_s, u"cloud.drizzle.fill"_s,
            u"cloud.drizzle.fill"_s);
        add({61, 62, 63, 64, 65, 66, 67}, u"Rain"_s, u"cloud.rain.fill"_s, u"cloud.rain.fill"_s);
        add({71, 72, 73, 74, 75, 76, 77}, u"Snow"_s, u"cloud.snow.fill"_s, u"cloud.snow.fill"_s);
        add({80, 81, 82}, u"Showers"_s, u"cloud.heavyrain.fill"_s, u"cloud.heavyrain.fill"_s);
        add({85, 86}, u"Snow showers"_s, u"cloud.snow.fill"_s, u"cloud.snow.fill"_s);
        add({95}, u"Thunderstorm"_s, u"cloud.bolt.fill"_s, u"cloud.bolt.fill"_s);
        add({96, 99}, u"Hailstorm"_s, u"cloud.bolt.rain.fill"_s, u"cloud.bolt.rain.fill"_s);
        return rows;
    }();
    return table;
}

} // namespace

TEST(WeatherDescription, wordsEveryKnownCodeByDayAndByNight) {
    for (const auto &[code, texts] : known()) {
        EXPECT_EQ(describe(code, true), (WeatherDescription{texts[0], texts[1]})) << code;
        EXPECT_EQ(describe(code, false), (WeatherDescription{texts[0], texts[2]})) << code;
    }
}

TEST(WeatherDescription, hasADashForEveryOtherCode) {
    for (qint64 code = -300; code <= 300; ++code) {
        if (known().count(code) == 0) {
            EXPECT_EQ(describe(code, true), unknown) << code;
            EXPECT_EQ(describe(code, false), unknown) << code;
        }
    }
    EXPECT_EQ(describe(std::numeric_limits<qint64>::min(), true), unknown);
    EXPECT_EQ(describe(std::numeric_limits<qint64>::max(), true), unknown);
}

TEST(WeatherDescription, hasADashBesideEachRange) {
    for (const qint64 code : {4, 44, 50, 58, 60, 68, 70, 78, 79, 83, 84, 87, 94, 97, 98, -1}) {
        EXPECT_EQ(describe(code, true), unknown) << code;
    }
}

TEST(WeatherDescription, showsTheMoonInAClearNight) {
    EXPECT_EQ(describe(0, false), (WeatherDescription{u"Clear"_s, u"moon.stars.fill"_s}));
}

} // namespace zeph
