// SPDX-License-Identifier: MIT
// The reading of whole trees, such as the kernels of different machines show them.
#include "adapters/power/SysfsBattery.h"

#include "adapters/power/PowerSupplyTree.h"
#include "adapters/power/SupplyTree.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

class MachineSupplies : public testing::Test {
protected:
    BatteryReading read() const {
        const auto supplies = readMachineSupplies(tree.root());
        EXPECT_TRUE(supplies);
        return batteryReading(supplies.value_or(std::vector<PowerSupply>{}));
    }
    double percent() const {
        const BatteryReading reading = read();
        return reading.current && reading.maximum ? 100.0 * static_cast<double>(*reading.current) /
                                                        static_cast<double>(*reading.maximum)
                                                  : -1;
    }

    SupplyTree tree;
};

TEST_F(MachineSupplies, aChargingLaptop) {
    tree.addMains("1");
    tree.addBattery(u"BAT0"_s, "Charging", "40000000", "20000000");
    BatteryReading expected;
    expected.hasBattery = true;
    expected.current = 40'000'000;
    expected.maximum = 50'000'000;
    expected.isPluggedIn = true;
    expected.isCharging = true;
    expected.minutesToFull = 30;
    expected.cycleCount = 212;
    expected.designCapacity = 60'000'000;
    expected.fullCapacity = 50'000'000;
    EXPECT_EQ(read(), expected);
}

TEST_F(MachineSupplies, aDischargingLaptop) {
    tree.addMains("0");
    tree.addBattery(u"BAT0"_s, "Discharging", "25000000", "10000000");
    const BatteryReading reading = read();
    EXPECT_EQ(reading.isPluggedIn, false);
    EXPECT_EQ(reading.isCharging, false);
    EXPECT_EQ(reading.minutesToFull, -1);
    EXPECT_EQ(reading.minutesToEmpty, 150);
}

TEST_F(MachineSupplies, aFullLaptop) {
    tree.addMains("1");
    tree.addBattery(u"BAT0"_s, "Full", "50000000", "0");
    const BatteryReading reading = read();
    EXPECT_EQ(reading.current, reading.maximum);
    EXPECT_EQ(reading.isPluggedIn, true);
    EXPECT_EQ(reading.isCharging, false);
    EXPECT_EQ(reading.minutesToFull, -1);
    EXPECT_EQ(reading.minutesToEmpty, -1);
}

TEST_F(MachineSupplies, twoBatteriesCountByWhatTheyHold) {
    tree.addMains("0");
    tree.addBattery(u"BAT0"_s, "Discharging", "10000000", "15000000");
    tree.addBattery(u"BAT1"_s, "Unknown", "20000000", "0");
    tree.add(u"BAT1"_s, {{"energy_full", "25000000"}, {"energy_full_design", "25000000"}});
    tree.add(u"BAT1"_s, {{"cycle_count", "300"}});
    const BatteryReading reading = read();
    EXPECT_DOUBLE_EQ(percent(), 40);
    EXPECT_EQ(reading.minutesToEmpty, 120);
    EXPECT_EQ(reading.fullCapacity, 75'000'000);
    EXPECT_EQ(reading.designCapacity, 85'000'000);
    EXPECT_EQ(reading.cycleCount, 300);
}

TEST_F(MachineSupplies, twoBatteriesInDifferentUnitsCountTheSame) {
    tree.addBattery(u"BAT0"_s, "Discharging", "10000000", "15000000");
    tree.add(u"BAT1"_s, {{"type", "Battery"}, {"charge_now", "30"}, {"charge_full", "50"}});
    EXPECT_DOUBLE_EQ(percent(), 40);
    EXPECT_EQ(read().fullCapacity, 50'000'000) << "wear is that of the one that tells it";
}

TEST_F(MachineSupplies, aDesktopWithoutABattery) {
    EXPECT_FALSE(read().hasBattery);
    tree.addMains("1");
    tree.add(u"ups"_s, {{"type", "UPS"}, {"capacity", "100"}});
    tree.add(u"hidpp_battery_0"_s, {{"type", "Battery"}, {"scope", "Device"}, {"capacity", "7"}});
    EXPECT_EQ(read(), BatteryReading{});
}

TEST_F(MachineSupplies, anEmptyBayIsNoBattery) {
    tree.addMains("1");
    tree.add(u"BAT0"_s, {{"type", "Battery"}, {"present", "0"}});
    EXPECT_FALSE(read().hasBattery);
}

TEST_F(MachineSupplies, aFullChargeOfZeroLeavesTheDriversPercentage) {
    tree.addBattery(u"BAT0"_s, "Discharging", "25000000", "10000000");
    tree.add(u"BAT0"_s, {{"energy_full", "0"}, {"capacity", "63"}});
    EXPECT_DOUBLE_EQ(percent(), 63);
    EXPECT_EQ(read().minutesToEmpty, -1);
    EXPECT_EQ(read().fullCapacity, std::nullopt);
}

TEST_F(MachineSupplies, aPercentageOf255IsNotBelieved) {
    tree.add(u"BAT0"_s, {{"type", "Battery"}, {"status", "Discharging"}, {"capacity", "255"}});
    const BatteryReading reading = read();
    EXPECT_TRUE(reading.hasBattery);
    EXPECT_EQ(reading.current, std::nullopt);
    EXPECT_EQ(reading.maximum, std::nullopt);
    tree.add(u"BAT0"_s, {{"capacity", "-1"}});
    EXPECT_EQ(read().current, std::nullopt);
}

TEST_F(MachineSupplies, aLittleMoreThanFullIsFull) {
    tree.addBattery(u"BAT0"_s, "Charging", "52000000", "10000000");
    EXPECT_DOUBLE_EQ(percent(), 100);
    EXPECT_EQ(read().minutesToFull, 0);
    tree.add(u"BAT0"_s, {{"energy_now", "500000000"}, {"capacity", "255"}});
    EXPECT_EQ(read().current, std::nullopt) << "ten times full is a lie";
}

TEST_F(MachineSupplies, missingFilesLeaveEverythingUnknown) {
    tree.add(u"BAT0"_s, {{"type", "Battery"}});
    BatteryReading expected;
    expected.hasBattery = true;
    expected.isCharging = false;
    EXPECT_EQ(read(), expected);
    tree.add(u"half"_s, {});
    EXPECT_EQ(read(), expected) << "a supply that is just going away";
}

TEST_F(MachineSupplies, aDesignCapacityThatCantBeTrueTellsNoWear) {
    tree.addBattery(u"BAT0"_s, "Full", "50000000", "0");
    for (const char *design : {"0", "1", "-60000000", "x"}) {
        tree.add(u"BAT0"_s, {{"energy_full_design", design}});
        EXPECT_EQ(read().designCapacity, std::nullopt) << design;
        EXPECT_EQ(read().fullCapacity, std::nullopt) << design;
    }
}

TEST_F(MachineSupplies, driversThatDontCountCyclesTellNone) {
    tree.addBattery(u"BAT0"_s, "Full", "50000000", "0");
    for (const char *cycles : {"0", "-1", ""}) {
        tree.add(u"BAT0"_s, {{"cycle_count", cycles}});
        EXPECT_EQ(read().cycleCount, std::nullopt) << cycles;
    }
}

TEST_F(MachineSupplies, aTimeLongerThanAnyBatteryLastsIsUnknown) {
    tree.addBattery(u"BAT0"_s, "Discharging", "50000000", "1");
    EXPECT_EQ(read().minutesToEmpty, -1);
}

TEST_F(MachineSupplies, theUsbPortsAreAskedOnlyWithoutMains) {
    tree.addBattery(u"BAT0"_s, "Discharging", "50000000", "10000000");
    tree.add(u"ucsi"_s, {{"type", "USB"}, {"online", "1"}});
    EXPECT_EQ(read().isPluggedIn, true);
    tree.addMains("0");
    EXPECT_EQ(read().isPluggedIn, false) << "the port feeds a phone";
}

TEST_F(MachineSupplies, withoutAnyLineTheStatusTellsWhetherItIsPluggedIn) {
    const std::vector<std::pair<const char *, std::optional<bool>>> cases{
        {"Charging", true},
        {"Full", true},
        {"Not charging", true},
        {"Discharging", false},
        {"Unknown", std::nullopt}};
    for (const auto &[status, isPluggedIn] : cases) {
        tree.addBattery(u"BAT0"_s, status, "50000000", "0");
        EXPECT_EQ(read().isPluggedIn, isPluggedIn) << status;
    }
}

TEST(PowerSupplyTree, isAbsentWithoutItsFolder) {
    EXPECT_FALSE(readMachineSupplies(u"/nonexistent/power_supply"_s));
    EXPECT_TRUE(readDeviceSupplies(u"/nonexistent/power_supply"_s).empty());
}

TEST(PowerSupplyTree, stopsAtMoreSuppliesThanAnyMachineHas) {
    const SupplyTree tree;
    for (int index = 0; index < 100; ++index) {
        tree.add(QString::number(index), {{"type", "Battery"}, {"scope", "Device"}});
    }
    EXPECT_EQ(readDeviceSupplies(tree.root()).size(), 64U);
}

} // namespace

} // namespace zeph
