// SPDX-License-Identifier: MIT
#pragma once

#include "base/Date.h"
#include "model/APODInfo.h"

#include <optional>

namespace zeph {

/// The place of a picture of the day. It has no way to fetch one, so that its widget always shows
/// its empty state.
struct NASAService {
    std::optional<Date> lastFetchDay;
    std::optional<APODInfo> cached;
};

} // namespace zeph
