// SPDX-License-Identifier: MIT
#pragma once

#include "base/Coordinate.h"
#include "model/AirQualityInfo.h"
#include "model/OnThisDayInfo.h"
#include "model/QuoteInfo.h"
#include "model/WeatherInfo.h"

#include <QJsonValue>

#include <optional>

namespace zeph {

/// Where the space station stands.
struct StationPosition {
    Coordinate coordinate;
    double altitudeKm = 0; ///< a whole number, 0 when it was not told

    bool operator==(const StationPosition &) const = default;
};

/// What the services of the surroundings answer, read into records. Nothing is taken for what it
/// is not, and an answer that lacks what its record needs is absent.
namespace AmbientAnswers {

/// Needs a temperature. A code that is missing or not whole reads as 0, and so does a light that
/// is missing as day. `locationName` is left to the caller.
std::optional<WeatherInfo> weather(const QJsonValue &answer, Date now);

std::optional<AirQualityInfo> airQuality(const QJsonValue &answer, Date now);

/// The first of a list of quotes, by the keys of the first quote service.
std::optional<QuoteInfo> zenQuote(const QJsonValue &answer);

/// One quote, by the keys of the second quote service.
std::optional<QuoteInfo> quotableQuote(const QJsonValue &answer);

/// The event whose turn it is on `dayOfYear`, so that it stays the same all day; 0 stands for a
/// day that is not known.
std::optional<OnThisDayInfo> onThisDay(const QJsonValue &answer, int dayOfYear);

/// Needs latitude and longitude.
std::optional<StationPosition> station(const QJsonValue &answer);

} // namespace AmbientAnswers

} // namespace zeph
