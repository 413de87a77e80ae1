// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace zeph {

/// One application's time today. Its identity is `bundleID`.
struct AppUsage {
    QString bundleID;
    QString name;
    double seconds = 0; ///< foreground seconds today
    std::optional<QString> iconPath;

    bool operator==(const AppUsage &) const = default;
};

} // namespace zeph
