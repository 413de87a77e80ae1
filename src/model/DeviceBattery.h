// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zeph {

/// One peripheral's battery. Its identity is `name`.
struct DeviceBattery {
    QString name;
    qint64 percent = 0;

    /// The symbol identifier chosen from words in the name.
    QString symbol() const;

    bool operator==(const DeviceBattery &) const = default;
};

} // namespace zeph
