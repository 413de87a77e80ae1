// SPDX-License-Identifier: MIT
#pragma once

#include "base/Date.h"

#include <QtGlobal>

namespace zeph {

/// Air quality at the user's place.
struct AirQualityInfo {
    qint64 aqi = 0; ///< United States air-quality index
    Date updated;

    bool operator==(const AirQualityInfo &) const = default;
};

} // namespace zeph
