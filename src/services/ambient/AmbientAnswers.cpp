// SPDX-License-Identifier: MIT
#include "services/ambient/AmbientAnswers.h"

#include "services/web/Json.h"

#include <cmath>

namespace zeph::AmbientAnswers {

namespace {

// Beyond these a number is an error of the service, and no sentence could hold it.
constexpr double hottest = 1000;      // degrees Celsius
constexpr double highest = 1'000'000; // kilometres

std::optional<double> numberWithin(double limit, const QJsonValue &value) {
    const auto number = json::number(value);
    return number && std::abs(*number) <= limit ? number : std::nullopt;
}

/// The current conditions in an answer of either forecast endpoint; empty without any.
QJsonObject current(const QJsonValue &answer) {
    return answer.toObject().value(u"current").toObject();
}

std::optional<QuoteInfo> quote(const QJsonValue &object, QStringView textKey,
                               QStringView authorKey) {
    const auto text = json::text(object.toObject().value(textKey));
    const auto author = json::text(object.toObject().value(authorKey));
    return text && author ? std::optional(QuoteInfo{*text, *author}) : std::nullopt;
}

} // namespace

std::optional<WeatherInfo> weather(const QJsonValue &answer, Date now) {
    const QJsonObject conditions = current(answer);
    const auto temperature = numberWithin(hottest, conditions.value(u"temperature_2m"));
    if (!temperature) {
        return std::nullopt;
    }
    WeatherInfo info;
    info.temperatureC = *temperature;
    info.apparentC = numberWithin(hottest, conditions.value(u"apparent_temperature"));
    info.code = json::integer(conditions.value(u"weather_code")).value_or(0);
    info.isDay = json::integer(conditions.value(u"is_day")).value_or(1) == 1;
    info.updated = now;
    return info;
}

std::optional<AirQualityInfo> airQuality(const QJsonValue &answer, Date now) {
    const auto aqi = json::integer(current(answer).value(u"us_aqi"));
    return aqi ? std::optional(AirQualityInfo{*aqi, now}) : std::nullopt;
}

std::optional<QuoteInfo> zenQuote(const QJsonValue &answer) {
    return quote(answer.toArray().at(0), u"q", u"a");
}

std::optional<QuoteInfo> quotableQuote(const QJsonValue &answer) {
    return quote(answer, u"content", u"author");
}

std::optional<OnThisDayInfo> onThisDay(const QJsonValue &answer, int dayOfYear) {
    const QJsonArray events = answer.toObject().value(u"events").toArray();
    if (events.isEmpty()) {
        return std::nullopt;
    }
    const QJsonObject chosen = events.at(dayOfYear % events.size()).toObject();
    const auto year = json::text(chosen.value(u"year"));
    const auto text = json::text(chosen.value(u"description"));
    return year && text ? std::optional(OnThisDayInfo{*year, *text}) : std::nullopt;
}

std::optional<StationPosition> station(const QJsonValue &answer) {
    const QJsonObject object = answer.toObject();
    const auto latitude = numberWithin(90, object.value(u"latitude"));
    const auto longitude = numberWithin(360, object.value(u"longitude"));
    if (!latitude || !longitude) {
        return std::nullopt;
    }
    const double altitude = numberWithin(highest, object.value(u"altitude")).value_or(0);
    return StationPosition{{*latitude, *longitude}, std::round(altitude)};
}

} // namespace zeph::AmbientAnswers
