// SPDX-License-Identifier: MIT
#include "sensing/SystemLoadMonitor.h"

#include "support/FakeMachine.h"

#include <gtest/gtest.h>

#include <limits>

namespace zeph {

namespace {

class SystemLoadSample : public testing::Test {
protected:
    void sampleCPU(const std::optional<CpuTicks> &ticks) {
        host.ticks = ticks;
        monitor->sampleCPU();
    }
    double cpu() const { return monitor->load().cpuUsage; }
    void makeMonitor() { monitor = std::make_unique<SystemLoadMonitor>(host); }

    FakeHostStatistics host;
    std::unique_ptr<SystemLoadMonitor> monitor = std::make_unique<SystemLoadMonitor>(host);
};

TEST_F(SystemLoadSample, startsWithTheSizeOfTheMemoryAndNothingElse) {
    SystemLoad expected;
    expected.memoryTotalBytes = 16'000'000'000;
    EXPECT_EQ(monitor->load(), expected);
}

TEST_F(SystemLoadSample, givesNoShareOnTheFirstReading) {
    sampleCPU(CpuTicks{100, 100, 100, 100});
    EXPECT_DOUBLE_EQ(cpu(), 0);
}

TEST_F(SystemLoadSample, givesAHalfForThirtyTenFiftyTen) {
    sampleCPU(CpuTicks{1000, 2000, 3000, 4000});
    sampleCPU(CpuTicks{1030, 2010, 3050, 4010});
    EXPECT_DOUBLE_EQ(cpu(), 0.5);
}

TEST_F(SystemLoadSample, keepsTheOldShareOnTwoEqualReadings) {
    sampleCPU(CpuTicks{0, 0, 0, 0});
    sampleCPU(CpuTicks{30, 10, 50, 10});
    sampleCPU(CpuTicks{30, 10, 50, 10});
    EXPECT_DOUBLE_EQ(cpu(), 0.5);
}

TEST_F(SystemLoadSample, givesASmallDifferenceForAUserCounterThatWraps) {
    constexpr auto last = std::numeric_limits<quint32>::max();
    sampleCPU(CpuTicks{last - 9, 0, 0, 0});
    sampleCPU(CpuTicks{20, 0, 70, 0}); // 30 busy of 100
    EXPECT_DOUBLE_EQ(cpu(), 0.3);
}

TEST_F(SystemLoadSample, givesASmallDifferenceForAnIdleCounterThatWraps) {
    constexpr auto last = std::numeric_limits<quint32>::max();
    sampleCPU(CpuTicks{0, 0, last, 0});
    sampleCPU(CpuTicks{25, 0, 74, 0});
    EXPECT_DOUBLE_EQ(cpu(), 0.25);
}

TEST_F(SystemLoadSample, isFullyBusyWithoutIdleTicks) {
    sampleCPU(CpuTicks{0, 0, 0, 0});
    sampleCPU(CpuTicks{1, 2, 0, 3});
    EXPECT_DOUBLE_EQ(cpu(), 1.0);
}

TEST_F(SystemLoadSample, keepsTheShareOnARefusalAndComputesAcrossTheGap) {
    sampleCPU(CpuTicks{0, 0, 0, 0});
    sampleCPU(CpuTicks{10, 0, 90, 0});
    sampleCPU(std::nullopt);
    EXPECT_DOUBLE_EQ(cpu(), 0.1);
    sampleCPU(CpuTicks{60, 0, 140, 0});
    EXPECT_DOUBLE_EQ(cpu(), 0.5);
}

TEST_F(SystemLoadSample, addsActiveWiredAndCompressedPages) {
    host.pages = MemoryPages{1000, 200, 30};
    host.bytesInPage = 16384;
    monitor->sampleMemory();
    EXPECT_EQ(monitor->load().memoryUsedBytes, 1230U * 16384U);
    EXPECT_DOUBLE_EQ(monitor->load().memoryPressure, 1230.0 * 16384.0 / 16e9);
}

TEST_F(SystemLoadSample, keepsMemoryPressureAtOneWhenMoreIsUsedThanThereIs) {
    host.totalBytes = 4096;
    makeMonitor();
    host.pages = MemoryPages{2, 0, 0};
    monitor->sampleMemory();
    EXPECT_EQ(monitor->load().memoryUsedBytes, 8192U);
    EXPECT_DOUBLE_EQ(monitor->load().memoryPressure, 1.0);
}

TEST_F(SystemLoadSample, leavesMemoryPressureAloneWithATotalOfZero) {
    host.totalBytes = 0;
    makeMonitor();
    host.pages = MemoryPages{2, 0, 0};
    monitor->sampleMemory();
    EXPECT_EQ(monitor->load().memoryUsedBytes, 8192U);
    EXPECT_DOUBLE_EQ(monitor->load().memoryPressure, 0);
}

TEST_F(SystemLoadSample, keepsMemoryOnARefusal) {
    host.pages = MemoryPages{1000, 0, 0};
    monitor->sampleMemory();
    const SystemLoad before = monitor->load();
    host.pages.reset();
    monitor->sampleMemory();
    EXPECT_EQ(monitor->load(), before);
}

TEST_F(SystemLoadSample, asksForTheSizeOfTheMemoryOnce) {
    host.totalBytes = 1;
    monitor->sampleMemory();
    EXPECT_EQ(monitor->load().memoryTotalBytes, 16'000'000'000U);
}

} // namespace

} // namespace zeph
