// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zeph {

/// A weather code in a word and a symbol identifier.
struct WeatherDescription {
    QString text;
    QString symbol;

    bool operator==(const WeatherDescription &) const = default;
};

/// Words a code of the forecast service. Whole ranges count, also codes that the service does
/// not define; only 0, 1 and 2 change with the time of day. Any other code reads "–".
WeatherDescription describe(qint64 code, bool isDay);

} // namespace zeph
