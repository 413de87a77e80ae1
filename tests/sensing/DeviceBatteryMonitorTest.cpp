// SPDX-License-Identifier: MIT
#include "sensing/DeviceBatteryMonitor.h"

#include "support/FakeAccessories.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <limits>
#include <thread>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

using Devices = std::vector<DeviceBattery>;

class DeviceBatterySample : public testing::Test {
protected:
    FakeAccessories accessories;
    DeviceBatteryMonitor monitor{accessories};
};

TEST_F(DeviceBatterySample, isEmptyWithoutPeripherals) {
    EXPECT_EQ(monitor.sample(), Devices{});
}

TEST_F(DeviceBatterySample, mergesBothSourcesSortedByName) {
    accessories.input = {{u"Mouse"_s, 70}, {u"Keyboard"_s, 60}};
    accessories.services = {{u"Headset"_s, 50}};
    EXPECT_EQ(monitor.sample(),
              (Devices{{u"Headset"_s, 50}, {u"Keyboard"_s, 60}, {u"Mouse"_s, 70}}));
}

TEST_F(DeviceBatterySample, sortsByPlainTextCapitalsFirst) {
    accessories.input = {
        {u"alpha"_s, 1}, {u"Zulu"_s, 2}, {u"Ärmel"_s, 3}, {u"Alpha 10"_s, 4}, {u"Alpha 9"_s, 5}};
    EXPECT_EQ(monitor.sample(), (Devices{{u"Alpha 10"_s, 4},
                                         {u"Alpha 9"_s, 5},
                                         {u"Zulu"_s, 2},
                                         {u"alpha"_s, 1},
                                         {u"Ärmel"_s, 3}}));
}

TEST_F(DeviceBatterySample, aDeviceWithoutAProductNameIsCalledDevice) {
    accessories.input = {{std::nullopt, 30}};
    EXPECT_EQ(monitor.sample(), (Devices{{u"Device"_s, 30}}));
}

TEST_F(DeviceBatterySample, twoDevicesNamedDeviceCollapseIntoTheFirst) {
    accessories.input = {{std::nullopt, 30}, {u"Device"_s, 40}};
    accessories.services = {{std::nullopt, 50}};
    EXPECT_EQ(monitor.sample(), (Devices{{u"Device"_s, 30}}));
}

TEST_F(DeviceBatterySample, theSameNameInBothSourcesKeepsTheInputDevicesPercent) {
    accessories.input = {{u"Mouse"_s, 71}};
    accessories.services = {{u"Mouse"_s, 20}, {u"mouse"_s, 21}};
    EXPECT_EQ(monitor.sample(), (Devices{{u"Mouse"_s, 71}, {u"mouse"_s, 21}}))
        << "names that differ in case are two";
}

TEST_F(DeviceBatterySample, aDroppedInputDeviceLeavesItsNameToTheServices) {
    accessories.input = {{u"Mouse"_s, 0}};
    accessories.services = {{u"Mouse"_s, 20}};
    EXPECT_EQ(monitor.sample(), (Devices{{u"Mouse"_s, 20}}));
}

TEST_F(DeviceBatterySample, skipsTheInternalBatteryOfTheServicesWhateverItsPercent) {
    accessories.services = {{u"InternalBattery-0"_s, 50},
                            {u"InternalBattery"_s, 100},
                            {u"My InternalBattery"_s, 3},
                            {u"internalbattery"_s, 4}};
    EXPECT_EQ(monitor.sample(), (Devices{{u"My InternalBattery"_s, 3}, {u"internalbattery"_s, 4}}));
}

TEST_F(DeviceBatterySample, keepsAnInputDeviceWithTheInternalBatterysName) {
    accessories.input = {{u"InternalBattery-0"_s, 50}};
    EXPECT_EQ(monitor.sample(), (Devices{{u"InternalBattery-0"_s, 50}}));
}

TEST_F(DeviceBatterySample, dropsAPercentOfZeroAboveAHundredOrMissing) {
    const std::vector<AccessoryCharge> charges{
        {u"Zero"_s, 0},           {u"One"_s, 1},
        {u"Hundred"_s, 100},      {u"More"_s, 101},
        {u"Byte"_s, 255},         {u"Four digits"_s, 1050},
        {u"Below"_s, -1},         {u"Far"_s, std::numeric_limits<qint64>::max()},
        {u"None"_s, std::nullopt}};
    const Devices kept{{u"Hundred"_s, 100}, {u"One"_s, 1}};
    accessories.input = charges;
    EXPECT_EQ(monitor.sample(), kept);
    accessories.input.clear();
    accessories.services = charges;
    EXPECT_EQ(monitor.sample(), kept);
}

TEST_F(DeviceBatterySample, aNameInMixedCaseFindsItsSymbol) {
    accessories.services = {{u"AirPods Pro"_s, 80}};
    const Devices devices = monitor.sample();
    ASSERT_EQ(devices.size(), 1U);
    EXPECT_EQ(devices.at(0).symbol(), u"airpodspro"_s);
}

TEST_F(DeviceBatterySample, mayOverlap) {
    accessories.input = {{u"Mouse"_s, 70}};
    accessories.services = {{u"Headset"_s, 50}};
    const Devices expected{{u"Headset"_s, 50}, {u"Mouse"_s, 70}};
    std::atomic<int> right = 0;
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&] {
            for (int round = 0; round < 200; ++round) {
                right += monitor.sample() == expected ? 1 : 0;
            }
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    EXPECT_EQ(right, 800);
    EXPECT_EQ(accessories.readings, 800);
}

} // namespace

} // namespace zeph
