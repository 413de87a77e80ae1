// SPDX-License-Identifier: MIT
#include "sensing/NetworkMonitor.h"

#include "ports/Clock.h"
#include "ports/NetworkInterfaces.h"
#include "ports/WiFi.h"

#include <algorithm>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

// Wired links are named en… or eth…, wireless ones wl…; loopback, tunnels and bridges are not.
// A dot marks a virtual network such as enp3s0.100, whose bytes the link below it has counted.
bool isCounted(const QString &name) {
    return !name.contains(u'.') &&
           (name.startsWith(u"en"_s) || name.startsWith(u"eth"_s) || name.startsWith(u"wl"_s));
}

double rate(quint64 before, quint64 now, double seconds) {
    return std::max(0.0, static_cast<double>(now - before) / seconds);
}

} // namespace

NetworkMonitor::NetworkMonitor(const Clock &clock, const NetworkInterfaces &interfaces,
                               const WiFi &wifi)
    : m_clock(clock), m_interfaces(interfaces), m_wifi(wifi), m_prevDate(clock.now()) {}

void NetworkMonitor::sample() {
    const Bytes bytes = totalBytes();
    const Date now = m_clock.now();
    const double gap = now - m_prevDate;
    if (m_primed && gap > 0) {
        m_throughput.uploadBytesPerSec = rate(m_prev.up, bytes.up, gap);
        m_throughput.downloadBytesPerSec = rate(m_prev.down, bytes.down, gap);
    }
    m_prev = bytes;
    m_prevDate = now;
    m_primed = true;
    m_throughput.ssid = m_wifi.ssid();
}

NetworkMonitor::Bytes NetworkMonitor::totalBytes() const {
    Bytes sum;
    const auto links = m_interfaces.links();
    if (!links) {
        return sum;
    }
    for (const LinkCounters &link : *links) {
        if (isCounted(link.name)) {
            sum.up += link.bytesSent;
            sum.down += link.bytesReceived;
        }
    }
    return sum;
}

} // namespace zeph
