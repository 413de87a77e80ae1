// SPDX-License-Identifier: MIT
#include "wording/WeatherDescription.h"

#include <array>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

struct Row {
    qint64 first;
    qint64 last;
    const char *text;
    const char *daySymbol;
    const char *nightSymbol;
};

constexpr std::array rows = {
    Row{0, 0, "Clear", "sun.max.fill", "moon.stars.fill"},
    Row{1, 2, "Partly cloudy", "cloud.sun.fill", "cloud.moon.fill"},
    Row{3, 3, "Overcast", "cloud.fill", "cloud.fill"},
    Row{45, 45, "Foggy", "cloud.fog.fill", "cloud.fog.fill"},
    Row{48, 48, "Foggy", "cloud.fog.fill", "cloud.fog.fill"},
    Row{51, 57, "Drizzle", "cloud.drizzle.fill", "cloud.drizzle.fill"},
    Row{61, 67, "Rain", "cloud.rain.fill", "cloud.rain.fill"},
    Row{71, 77, "Snow", "cloud.snow.fill", "cloud.snow.fill"},
    Row{80, 82, "Showers", "cloud.heavyrain.fill", "cloud.heavyrain.fill"},
    Row{85, 86, "Snow showers", "cloud.snow.fill", "cloud.snow.fill"},
    Row{95, 95, "Thunderstorm", "cloud.bolt.fill", "cloud.bolt.fill"},
    Row{96, 96, "Hailstorm", "cloud.bolt.rain.fill", "cloud.bolt.rain.fill"},
    Row{99, 99, "Hailstorm", "cloud.bolt.rain.fill", "cloud.bolt.rain.fill"}};

} // namespace

WeatherDescription describe(qint64 code, bool isDay) {
    for (const Row &row : rows) {
        if (code >= row.first && code <= row.last) {
            return {QString::fromLatin1(row.text),
                    QString::fromLatin1(isDay ? row.daySymbol : row.nightSymbol)};
        }
    }
    return {u"–"_s, u"cloud.fill"_s};
}

} // namespace zeph
