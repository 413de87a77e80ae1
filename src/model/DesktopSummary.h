// SPDX-License-Identifier: MIT
#pragma once

#include "model/DesktopCategory.h"

#include <map>

namespace zeph {

/// The census of the Desktop folder.
struct DesktopSummary {
    qint64 totalItems = 0;
    std::map<DesktopCategory, qint64> counts;
    qint64 screenshotBytes = 0; ///< total size of the items in `screenshots`
    bool available = false;     ///< the folder could be read

    bool operator==(const DesktopSummary &) const = default;
};

} // namespace zeph
