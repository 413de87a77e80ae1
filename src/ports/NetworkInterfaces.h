// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Port.h"

#include <QString>

#include <optional>
#include <vector>

namespace zeph {

/// Cumulative byte counters of one link.
struct LinkCounters {
    QString name;
    quint64 bytesSent = 0;
    quint64 bytesReceived = 0;

    bool operator==(const LinkCounters &) const = default;
};

/// The machine's network links.
class NetworkInterfaces : public Port {
public:
    /// Every link that keeps counters, loopback and tunnels included; absent on refusal.
    virtual std::optional<std::vector<LinkCounters>> links() const = 0;
};

} // namespace zeph
