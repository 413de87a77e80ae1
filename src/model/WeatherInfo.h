// SPDX-License-Identifier: MIT
#pragma once

#include "base/Date.h"

#include <QString>

#include <optional>

namespace zeph {

/// The current weather at the user's place.
struct WeatherInfo {
    double temperatureC = 0;
    std::optional<double> apparentC; ///< felt temperature, degrees Celsius
    qint64 code = 0;                 ///< weather code of the forecast service
    bool isDay = true;
    std::optional<QString> locationName;
    Date updated;

    bool operator==(const WeatherInfo &) const = default;
};

} // namespace zeph
