// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

namespace zeph {

/// Space on the system volume, in bytes.
struct DiskInfo {
    qint64 freeBytes = 0;
    qint64 totalBytes = 0;

    bool operator==(const DiskInfo &) const = default;
};

} // namespace zeph
