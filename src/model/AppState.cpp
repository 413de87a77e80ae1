// SPDX-License-Identifier: MIT
#include "model/AppState.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zeph {

AppState::AppState(Date constructedAt) : now(objectWillChange, constructedAt) {}

std::optional<AppUsage> AppState::topApp() const {
    if (rankedApps->empty()) {
        return std::nullopt;
    }
    return rankedApps->front();
}

double AppState::moodFraction(int hour) const {
    if (solar->sunrise) {
        return solar->daylightFraction;
    }
    return std::max(0.0, std::sin((hour - 6) / 12.0 * std::numbers::pi));
}

} // namespace zeph
