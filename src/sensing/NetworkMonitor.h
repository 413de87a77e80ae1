// SPDX-License-Identifier: MIT
#pragma once

#include "base/Date.h"
#include "model/NetworkThroughput.h"

#include <QtGlobal>

namespace zeph {

class Clock;
class NetworkInterfaces;
class WiFi;

/// Traffic of the wired and wireless links, and the wireless network's name. Main thread only.
class NetworkMonitor {
public:
    NetworkMonitor(const Clock &clock, const NetworkInterfaces &interfaces, const WiFi &wifi);

    /// Rates over the time since the last call; the first call gives none. Nothing smooths a
    /// counter that fell: the 64-bit difference wraps, and one rate is huge.
    void sample();

    const NetworkThroughput &throughput() const { return m_throughput; }
    bool primed() const { return m_primed; }

private:
    struct Bytes {
        quint64 up = 0;
        quint64 down = 0;
    };
    Bytes totalBytes() const;

    const Clock &m_clock;
    const NetworkInterfaces &m_interfaces;
    const WiFi &m_wifi;
    NetworkThroughput m_throughput;
    Bytes m_prev;
    Date m_prevDate;
    bool m_primed = false;
};

} // namespace zeph
