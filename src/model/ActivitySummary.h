// SPDX-License-Identifier: MIT
#pragma once

#include "base/Date.h"

#include <QString>

#include <optional>

namespace zeph {

/// The shape of the day.
struct ActivitySummary {
    std::optional<Date> firstActive;
    std::optional<Date> lastActive;
    double activeSeconds = 0;    ///< seconds not idle today
    double machineOnSeconds = 0; ///< seconds that the sampling clock ran today
    qint64 appSwitches = 0;
    double longestFocusSeconds = 0;
    std::optional<QString> longestFocusApp; ///< display name
    bool isIdle = false;

    bool operator==(const ActivitySummary &) const = default;
};

} // namespace zeph
