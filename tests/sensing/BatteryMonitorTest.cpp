// SPDX-License-Identifier: MIT
#include "sensing/BatteryMonitor.h"

#include "support/FakePowerSources.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <limits>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

class BatterySample : public testing::Test {
protected:
    const BatteryInfo &sample(const QVariantMap &description) {
        sources.sources = std::vector<QVariantMap>{description};
        monitor.sample();
        return monitor.info();
    }
    qint64 percentageOf(const QVariant &current, const QVariant &maximum) {
        return sample({{u"Current Capacity"_s, current}, {u"Max Capacity"_s, maximum}}).percentage;
    }
    std::optional<qint64> minutes(bool isCharging, const QVariant &toFull,
                                  const QVariant &toEmpty) {
        return sample({{u"Is Charging"_s, isCharging},
                       {u"Time to Full Charge"_s, toFull},
                       {u"Time to Empty"_s, toEmpty}})
            .minutesRemaining;
    }
    const BatteryInfo &sampleGauge(std::map<QString, qint64> gauges) {
        sources.gauges = std::move(gauges);
        return sample({});
    }

    FakePowerSources sources;
    BatteryMonitor monitor{sources};
};

const QVariantMap chargingDescription{{u"Current Capacity"_s, 40},
                                      {u"Max Capacity"_s, 50},
                                      {u"Power Source State"_s, u"AC Power"_s},
                                      {u"Is Charging"_s, true},
                                      {u"Time to Full Charge"_s, 31},
                                      {u"Time to Empty"_s, 200}};

TEST_F(BatterySample, countsAsPresentAndEmptyBeforeTheFirstReading) {
    EXPECT_EQ(monitor.info(), BatteryInfo{});
    EXPECT_TRUE(monitor.info().isPresent);
    EXPECT_EQ(monitor.info().percentage, 0);
}

TEST_F(BatterySample, readsEveryField) {
    sources.gauges = {
        {u"CycleCount"_s, 212}, {u"DesignCapacity"_s, 5000}, {u"AppleRawMaxCapacity"_s, 4700}};
    EXPECT_EQ(sample(chargingDescription), (BatteryInfo{80, true, true, 31, 94, 212, true}));
}

TEST_F(BatterySample, fortyThreeOfEightySixGivesFifty) {
    EXPECT_EQ(percentageOf(43, 86), 50);
}

TEST_F(BatterySample, twoOfThreeGivesSixtySeven) {
    EXPECT_EQ(percentageOf(2, 3), 67);
}

TEST_F(BatterySample, roundsHalvesAwayFromZero) {
    EXPECT_EQ(percentageOf(1, 8), 13);
    EXPECT_EQ(percentageOf(1, 200), 1);
    EXPECT_EQ(percentageOf(-1, 8), -13);
    EXPECT_EQ(percentageOf(124, 1000), 12);
}

TEST_F(BatterySample, aMaximumOfZeroOrLessKeepsTheOldPercentage) {
    ASSERT_EQ(percentageOf(43, 86), 50);
    EXPECT_EQ(percentageOf(43, 0), 50);
    EXPECT_EQ(percentageOf(43, -5), 50);
}

TEST_F(BatterySample, aMissingCapacityKeepsTheOldPercentage) {
    ASSERT_EQ(percentageOf(43, 86), 50);
    EXPECT_EQ(sample({{u"Current Capacity"_s, 10}}).percentage, 50);
    EXPECT_EQ(sample({{u"Max Capacity"_s, 10}}).percentage, 50);
}

TEST_F(BatterySample, onlyWholeNumbersCountAsCapacities) {
    ASSERT_EQ(percentageOf(43, 86), 50);
    EXPECT_EQ(percentageOf(u"10"_s, 100), 50);
    EXPECT_EQ(percentageOf(10.5, 100), 50);
    EXPECT_EQ(percentageOf(true, 100), 50);
    EXPECT_EQ(percentageOf(10, u"100"_s), 50);
    EXPECT_EQ(percentageOf(10U, 100), 10);
    EXPECT_EQ(percentageOf(qlonglong(11), qulonglong(100)), 11);
}

TEST_F(BatterySample, aShareWithoutRoomInANumberKeepsTheOldPercentage) {
    ASSERT_EQ(percentageOf(43, 86), 50);
    EXPECT_EQ(percentageOf(std::numeric_limits<qint64>::max(), 1), 50);
    EXPECT_EQ(percentageOf(std::numeric_limits<quint64>::max(), 1), 50);
}

TEST_F(BatterySample, isPluggedInOnlyOnMainsPower) {
    EXPECT_TRUE(sample({{u"Power Source State"_s, u"AC Power"_s}}).isPluggedIn);
    EXPECT_FALSE(sample({{u"Power Source State"_s, u"Battery Power"_s}}).isPluggedIn);
    EXPECT_FALSE(sample({{u"Power Source State"_s, u"ac power"_s}}).isPluggedIn);
}

TEST_F(BatterySample, missingKeysMeanUnpluggedAndNotCharging) {
    ASSERT_TRUE(sample(chargingDescription).isPluggedIn);
    EXPECT_FALSE(sample({}).isPluggedIn);
    EXPECT_FALSE(monitor.info().isCharging);
    EXPECT_TRUE(monitor.info().isPresent) << "a description without keys is one all the same";
    EXPECT_EQ(monitor.info().percentage, 80);
}

TEST_F(BatterySample, chargesOnlyWhenTheSourceSaysSo) {
    EXPECT_TRUE(sample({{u"Is Charging"_s, true}}).isCharging);
    EXPECT_FALSE(sample({{u"Is Charging"_s, false}}).isCharging);
    EXPECT_FALSE(sample({{u"Is Charging"_s, u"true"_s}}).isCharging);
}

TEST_F(BatterySample, tellsTheTimeToFullWhileCharging) {
    EXPECT_EQ(minutes(true, 31, 200), 31);
    EXPECT_EQ(minutes(true, 0, 200), 0);
}

TEST_F(BatterySample, chargingWithoutATimeToFullFallsThroughToTheTimeToEmpty) {
    EXPECT_EQ(minutes(true, -1, 120), 120);
    EXPECT_EQ(minutes(true, QVariant(), 120), 120);
}

TEST_F(BatterySample, tellsTheTimeToEmptyWhileNotCharging) {
    EXPECT_EQ(minutes(false, 31, 200), 200);
    EXPECT_EQ(minutes(false, 31, 0), 0);
    EXPECT_EQ(minutes(false, 31, -1), std::nullopt);
}

TEST_F(BatterySample, neitherTimeKeyGivesNoTime) {
    ASSERT_EQ(minutes(true, 31, 200), 31);
    EXPECT_EQ(sample({{u"Is Charging"_s, true}}).minutesRemaining, std::nullopt);
    ASSERT_EQ(minutes(false, 31, 200), 200);
    EXPECT_EQ(sample({}).minutesRemaining, std::nullopt);
}

TEST_F(BatterySample, readsTheFirstOfSeveralSources) {
    sources.sources = std::vector<QVariantMap>{
        chargingDescription, {{u"Current Capacity"_s, 1}, {u"Max Capacity"_s, 100}}};
    monitor.sample();
    EXPECT_EQ(monitor.info().percentage, 80);
}

TEST_F(BatterySample, aMachineWithoutABatteryChangesNothingButItsPresence) {
    sources.gauges = {{u"CycleCount"_s, 7}};
    BatteryInfo expected = sample(chargingDescription);
    expected.isPresent = false;
    for (const auto &answer :
         {std::optional<std::vector<QVariantMap>>(), std::optional(std::vector<QVariantMap>{})}) {
        sources.sources = answer;
        sources.gauges = {{u"CycleCount"_s, 8}};
        sources.gaugeReadings = 0;
        monitor.sample();
        EXPECT_EQ(monitor.info(), expected);
        EXPECT_EQ(sources.gaugeReadings, 0) << "its gauge is not asked";
    }
    EXPECT_TRUE(sample(chargingDescription).isPresent) << "it may come back";
}

TEST_F(BatterySample, aMissingGaugeKeepsHealthAndCycles) {
    EXPECT_EQ(sampleGauge({}).health, std::nullopt);
    EXPECT_EQ(monitor.info().cycleCount, std::nullopt);
    const std::map<QString, qint64> worn{
        {u"CycleCount"_s, 3}, {u"DesignCapacity"_s, 100}, {u"MaxCapacity"_s, 90}};
    ASSERT_EQ(sampleGauge(worn).health, 90);
    sources.isGaugeThere = false;
    sources.gauges = {{u"CycleCount"_s, 4}};
    EXPECT_EQ(sample({}).cycleCount, 3);
    EXPECT_EQ(monitor.info().health, 90);
}

TEST_F(BatterySample, prefersTheRawMaximumForItsHealth) {
    EXPECT_EQ(
        sampleGauge(
            {{u"DesignCapacity"_s, 200}, {u"AppleRawMaxCapacity"_s, 171}, {u"MaxCapacity"_s, 100}})
            .health,
        86)
        << "85.5 rounds away from zero";
    EXPECT_EQ(sampleGauge({{u"DesignCapacity"_s, 200}, {u"MaxCapacity"_s, 100}}).health, 50);
}

TEST_F(BatterySample, anUnusableDesignCapacityKeepsTheOldHealth) {
    ASSERT_EQ(sampleGauge({{u"DesignCapacity"_s, 200}, {u"MaxCapacity"_s, 100}}).health, 50);
    EXPECT_EQ(sampleGauge({{u"DesignCapacity"_s, 0}, {u"MaxCapacity"_s, 90}}).health, 50);
    EXPECT_EQ(sampleGauge({{u"MaxCapacity"_s, 90}}).health, 50);
    EXPECT_EQ(sampleGauge({{u"DesignCapacity"_s, 100}}).health, 50);
}

} // namespace

} // namespace zeph
