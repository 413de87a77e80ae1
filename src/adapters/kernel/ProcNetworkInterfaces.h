// SPDX-License-Identifier: MIT
#pragma once

#include "ports/NetworkInterfaces.h"

#include <QString>

namespace zeph {

/// Links after /proc/net/dev. Every call reads the file anew, which the kernel makes on the spot.
class ProcNetworkInterfaces : public NetworkInterfaces {
public:
    /// `root` is the folder that stands for /proc.
    explicit ProcNetworkInterfaces(const QString &root = QStringLiteral("/proc"));

    std::optional<std::vector<LinkCounters>> links() const override;

private:
    QString m_path;
};

} // namespace zeph
