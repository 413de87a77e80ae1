// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace zeph {

/// Traffic of the wired and wireless links.
struct NetworkThroughput {
    double uploadBytesPerSec = 0;
    double downloadBytesPerSec = 0;
    std::optional<QString> ssid; ///< name of the joined wireless network

    bool operator==(const NetworkThroughput &) const = default;
};

} // namespace zeph
