// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zeph {

/// One event of this day in history.
struct OnThisDayInfo {
    QString year;
    QString text;

    bool operator==(const OnThisDayInfo &) const = default;
};

} // namespace zeph
