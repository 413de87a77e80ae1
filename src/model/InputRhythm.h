// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

namespace zeph {

/// Typing and mouse totals of the day.
struct InputRhythm {
    double keystrokesPerMinute = 0; ///< over the last 60 seconds
    qint64 totalKeystrokes = 0;
    qint64 mouseClicks = 0;
    double mouseDistanceMeters = 0;
    double dailyAverageKPM = 0; ///< average of the earlier days' rates
    bool isCountable = true;    ///< false on a desktop that does not tell of keys

    bool operator==(const InputRhythm &) const = default;
};

} // namespace zeph
