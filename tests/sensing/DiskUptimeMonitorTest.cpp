// SPDX-License-Identifier: MIT
#include "sensing/DiskUptimeMonitor.h"

#include "support/FakeMachine.h"
#include "support/ManualClock.h"

#include <gtest/gtest.h>

namespace zeph {

namespace {

class DiskUptimeSample : public testing::Test {
protected:
    ManualClock clock{1'000'000.75};
    FakeVolume volume;
    FakeHostStatistics host;
    DiskUptimeMonitor monitor{clock, volume, host};
};

TEST_F(DiskUptimeSample, startsWithZeros) {
    EXPECT_EQ(monitor.disk(), DiskInfo{});
    EXPECT_DOUBLE_EQ(monitor.uptimeSeconds(), 0);
}

TEST_F(DiskUptimeSample, takesBothFigures) {
    volume.value = VolumeCapacity{500, 120};
    monitor.sampleDisk();
    EXPECT_EQ(monitor.disk(), (DiskInfo{120, 500}));
}

TEST_F(DiskUptimeSample, staysAtZerosBeforeTheFirstSuccess) {
    monitor.sampleDisk();
    EXPECT_EQ(monitor.disk(), DiskInfo{});
}

TEST_F(DiskUptimeSample, keepsTheLastFiguresOnARefusal) {
    volume.value = VolumeCapacity{500, 120};
    monitor.sampleDisk();
    volume.value.reset();
    monitor.sampleDisk();
    EXPECT_EQ(monitor.disk(), (DiskInfo{120, 500}));
}

TEST_F(DiskUptimeSample, setsTheTwoFiguresIndependently) {
    volume.value = VolumeCapacity{500, 120};
    monitor.sampleDisk();
    volume.value = VolumeCapacity{600, std::nullopt};
    monitor.sampleDisk();
    EXPECT_EQ(monitor.disk(), (DiskInfo{120, 600}));
    volume.value = VolumeCapacity{std::nullopt, 99};
    monitor.sampleDisk();
    EXPECT_EQ(monitor.disk(), (DiskInfo{99, 600}));
}

TEST_F(DiskUptimeSample, takesTheTimeSinceTheWholeSecondOfTheBoot) {
    host.boot = Date{999'000.9};
    monitor.sampleUptime();
    EXPECT_DOUBLE_EQ(monitor.uptimeSeconds(), 1000.75);
}

TEST_F(DiskUptimeSample, keepsTheLastUptimeOnARefusal) {
    host.boot = Date{999'000};
    monitor.sampleUptime();
    host.boot.reset();
    clock.advance(100);
    monitor.sampleUptime();
    EXPECT_DOUBLE_EQ(monitor.uptimeSeconds(), 1000.75);
}

TEST_F(DiskUptimeSample, takesABootInSecondZeroForARefusal) {
    host.boot = Date{0.5};
    monitor.sampleUptime();
    EXPECT_DOUBLE_EQ(monitor.uptimeSeconds(), 0);
}

TEST_F(DiskUptimeSample, growsWithTheClockTimeAsleepIncluded) {
    host.boot = Date{999'000};
    monitor.sampleUptime();
    clock.advance(8 * 3600.0);
    monitor.sampleUptime();
    EXPECT_DOUBLE_EQ(monitor.uptimeSeconds(), 1000.75 + 8 * 3600.0);
}

} // namespace

} // namespace zeph
