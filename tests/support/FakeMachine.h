// SPDX-License-Identifier: MIT
#pragma once

#include "ports/HostStatistics.h"
#include "ports/NetworkInterfaces.h"
#include "ports/Volume.h"
#include "ports/WiFi.h"

namespace zeph {

/// Vital signs that the test sets.
class FakeHostStatistics : public HostStatistics {
public:
    std::optional<CpuTicks> cpuTicks() const override {
        ++cpuReads;
        return ticks;
    }
    std::optional<MemoryPages> memoryPages() const override { return pages; }
    quint64 pageSize() const override { return bytesInPage; }
    quint64 physicalMemory() const override { return totalBytes; }
    std::optional<Date> bootTime() const override { return boot; }

    std::optional<CpuTicks> ticks = CpuTicks{};
    std::optional<MemoryPages> pages = MemoryPages{};
    quint64 bytesInPage = 4096;
    quint64 totalBytes = 16'000'000'000;
    std::optional<Date> boot;
    mutable int cpuReads = 0;
};

/// Links that the test sets.
class FakeNetworkInterfaces : public NetworkInterfaces {
public:
    std::optional<std::vector<LinkCounters>> links() const override { return counters; }

    std::optional<std::vector<LinkCounters>> counters = std::vector<LinkCounters>{};
};

/// A wireless network that the test sets.
class FakeWiFi : public WiFi {
public:
    std::optional<QString> ssid() const override { return network; }

    std::optional<QString> network;
};

/// A volume that the test sets.
class FakeVolume : public Volume {
public:
    std::optional<VolumeCapacity> capacity() const override { return value; }

    std::optional<VolumeCapacity> value;
};

} // namespace zeph
