// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zeph {

/// What one unit costs, and for how long: `count` times `unit`.
struct LemonSqueezyPrice {
    qint64 cents = 0;
    QString unit;
    qint64 count = 1;

    bool operator==(const LemonSqueezyPrice &) const = default;
};

} // namespace zeph
