// SPDX-License-Identifier: MIT
#include "adapters/power/UPowerSources.h"

#include "adapters/power/QuietestHold.h"
#include "adapters/power/UPowerFixture.h"
#include "support/LeastGrowth.h"
#include "support/QtPrinters.h"

#include <QTimer>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

class UPowerOnABus : public UPowerFixture {
protected:
    UPowerSources &listen() {
        sources = std::make_unique<UPowerSources>(client.bus());
        return *sources;
    }
    bool settles() {
        return eventually([&] { return sources->isSettled(); });
    }
    /// What the display device leads to, asked afresh.
    std::optional<BatteryReading> readingOf(const QVariantMap &display) {
        sources.reset();
        upower.vanish();
        setDevice(u"DisplayDevice"_s, display);
        upower.appear();
        listen();
        EXPECT_TRUE(settles());
        return sources->battery();
    }

    std::unique_ptr<UPowerSources> sources;
};

TEST_F(UPowerOnABus, tellsNothingWithoutTheDaemon) {
    listen();
    EXPECT_FALSE(sources->isSettled());
    EXPECT_TRUE(settles());
    EXPECT_FALSE(sources->battery());
    EXPECT_TRUE(sources->accessories().empty());
}

TEST_F(UPowerOnABus, tellsNothingWithoutABus) {
    bus.stop();
    BusConnection nowhere(bus.address());
    const UPowerSources adapter(nowhere.bus());
    EXPECT_TRUE(adapter.isSettled());
    EXPECT_FALSE(adapter.battery());
}

TEST_F(UPowerOnABus, readsADischargingLaptop) {
    QVariantMap battery = batteryProperties(42.4);
    battery[u"EnergyFull"_s] = 47.0;
    battery[u"EnergyFullDesign"_s] = 50.0;
    battery[u"ChargeCycles"_s] = 212;
    setDevice(u"battery_BAT0"_s, battery);
    upower.appear();
    listen();
    ASSERT_TRUE(settles());
    BatteryReading expected;
    expected.hasBattery = true;
    expected.current = 42;
    expected.maximum = 100;
    expected.isPluggedIn = false;
    expected.isCharging = false;
    expected.minutesToEmpty = 121;
    expected.cycleCount = 212;
    expected.designCapacity = 50'000;
    expected.fullCapacity = 47'000;
    EXPECT_EQ(sources->battery(), expected);
    EXPECT_EQ(upower.questions, 4) << "each object once, and the list of them";
}

TEST_F(UPowerOnABus, readsEveryStateOfTheCharge) {
    setDaemon({{u"OnBattery"_s, QVariant(u"not told"_s)}});
    const std::vector<std::tuple<uint, std::optional<bool>, std::optional<bool>>> cases{
        {0, std::nullopt, std::nullopt},
        {1, true, true},
        {2, false, false},
        {3, false, false},
        {4, true, false},
        {5, true, false},
        {6, false, false},
        {77, std::nullopt, std::nullopt}};
    for (const auto &[state, isPluggedIn, isCharging] : cases) {
        QVariantMap display = batteryProperties(50);
        display[u"State"_s] = state;
        const auto reading = readingOf(display);
        ASSERT_TRUE(reading);
        EXPECT_EQ(reading->isPluggedIn, isPluggedIn) << state;
        EXPECT_EQ(reading->isCharging, isCharging) << state;
    }
}

TEST_F(UPowerOnABus, believesTheDaemonOnWhetherItIsPluggedIn) {
    setDaemon({{u"OnBattery"_s, false}});
    const auto reading = readingOf(batteryProperties(50));
    ASSERT_TRUE(reading);
    EXPECT_EQ(reading->isPluggedIn, true) << "a weak charger: plugged in and still discharging";
    EXPECT_EQ(reading->isCharging, false);
}

TEST_F(UPowerOnABus, hasNoBatteryOnADesktopOrBehindABackupSupply) {
    QVariantMap display = batteryProperties(50);
    display[u"IsPresent"_s] = false;
    EXPECT_EQ(readingOf(display), BatteryReading{});
    display[u"IsPresent"_s] = true;
    display[u"Type"_s] = 3U;
    EXPECT_EQ(readingOf(display), BatteryReading{});
}

TEST_F(UPowerOnABus, doesNotBelieveABatteryThatLies) {
    for (const QVariant &percentage :
         {QVariant(255.0), QVariant(-1.0), QVariant(qQNaN()), QVariant(u"50"_s)}) {
        QVariantMap display = batteryProperties(50);
        display[u"Percentage"_s] = percentage;
        display[u"TimeToEmpty"_s] = qlonglong(-5);
        display[u"TimeToFull"_s] = qlonglong(1) << 60;
        const auto reading = readingOf(display);
        ASSERT_TRUE(reading);
        EXPECT_EQ(reading->current, std::nullopt) << percentage.toString().toStdString();
        EXPECT_EQ(reading->minutesToEmpty, -1);
        EXPECT_EQ(reading->minutesToFull, -1);
    }
}

TEST_F(UPowerOnABus, tellsNoWearWithoutTheFullCharge) {
    QVariantMap battery = batteryProperties(50);
    battery[u"EnergyFull"_s] = 0.0;
    battery[u"EnergyFullDesign"_s] = 50.0;
    battery[u"ChargeCycles"_s] = -1;
    setDevice(u"battery_BAT0"_s, battery);
    const auto reading = readingOf(batteryProperties(50));
    ASSERT_TRUE(reading);
    EXPECT_EQ(reading->designCapacity, std::nullopt);
    EXPECT_EQ(reading->fullCapacity, std::nullopt);
    EXPECT_EQ(reading->cycleCount, std::nullopt);
}

TEST_F(UPowerOnABus, followsTheChargeWithoutAsking) {
    upower.appear();
    listen();
    ASSERT_TRUE(settles());
    const int questions = upower.questions;
    setDevice(u"DisplayDevice"_s, {{u"Percentage"_s, 41.0}, {u"State"_s, 1U}});
    setDaemon({{u"OnBattery"_s, false}});
    EXPECT_TRUE(eventually([&] {
        const auto reading = sources->battery();
        return reading && reading->current == 41 && reading->isCharging == true &&
               reading->isPluggedIn == true;
    }));
    EXPECT_EQ(upower.questions, questions);
}

TEST_F(UPowerOnABus, asksForAValueThatCameByNameOnly) {
    upower.appear();
    listen();
    ASSERT_TRUE(settles());
    upower.setSilently(upowerDevice(u"DisplayDevice"_s), u"org.freedesktop.UPower.Device"_s,
                       u"Percentage"_s, 12.0);
    EXPECT_TRUE(eventually([&] { return sources->battery()->current == 12; }));
}

TEST_F(UPowerOnABus, followsPeripheralsThatComeAndGo) {
    setDevice(u"mouse"_s, peripheral(u"Mouse"_s, 70.6));
    upower.appear();
    listen();
    ASSERT_TRUE(settles());
    const std::vector<AccessoryCharge> mouse{{u"Mouse"_s, 71}};
    EXPECT_EQ(sources->accessories(), mouse);
    setDevice(u"headset"_s, peripheral(u"Headset"_s, 30));
    announce(u"DeviceAdded"_s, u"headset"_s);
    EXPECT_TRUE(eventually([&] { return sources->accessories().size() == 2; }));
    upower.remove(upowerDevice(u"headset"_s));
    announce(u"DeviceRemoved"_s, u"headset"_s);
    EXPECT_TRUE(eventually([&] { return sources->accessories() == mouse; }));
}

TEST_F(UPowerOnABus, listsNoPeripheralThatIsAwayOrKnowsNoPercent) {
    QVariantMap away = peripheral(u"Away"_s, 50);
    away[u"IsPresent"_s] = false;
    QVariantMap coarse = peripheral(u"Low, normal or high"_s, 55);
    coarse[u"BatteryLevel"_s] = 6U;
    QVariantMap untold = peripheral(u"Untold"_s, 55);
    untold.remove(u"Percentage"_s);
    QVariantMap charger = peripheral(u"Charger"_s, 55);
    charger[u"Type"_s] = 1U;
    QVariantMap nameless = peripheral(QString(), 33);
    setDevice(u"a"_s, away);
    setDevice(u"b"_s, coarse);
    setDevice(u"c"_s, untold);
    setDevice(u"d"_s, charger);
    setDevice(u"e"_s, nameless);
    setDevice(u"f"_s, batteryProperties(80));
    upower.appear();
    listen();
    ASSERT_TRUE(settles());
    EXPECT_EQ(sources->accessories(), (std::vector<AccessoryCharge>{{std::nullopt, 33}}));
}

TEST_F(UPowerOnABus, cleansTheNamesOfPeripherals) {
    setDevice(u"mouse"_s, peripheral(u" Wireless\tMouse \nbad line "_s, 40));
    setDevice(u"pen"_s, peripheral(QString(500, u'x'), 50));
    setDevice(u"phone"_s, peripheral(u" \t "_s, 60));
    upower.appear();
    listen();
    ASSERT_TRUE(settles());
    EXPECT_EQ(sources->accessories(),
              (std::vector<AccessoryCharge>{
                  {u"Wireless Mouse"_s, 40}, {QString(128, u'x'), 50}, {std::nullopt, 60}}));
}

TEST_F(UPowerOnABus, believesNoMoreDevicesThanADeskHas) {
    for (int index = 0; index < 200; ++index) {
        setDevice(QString::number(index), peripheral(u"Mouse"_s, 50));
    }
    upower.appear();
    listen();
    ASSERT_TRUE(settles());
    EXPECT_EQ(sources->accessories().size(), 64U);
    EXPECT_TRUE(sources->battery());
}

TEST_F(UPowerOnABus, neverHoldsTheMainThreadForADaemonThatDoesNotAnswer) {
    upower.isMute = true;
    listen(); // to subscribe is to ask the bus, which always answers
    ASSERT_TRUE(settles());
    const double hold = quietestHoldMs([&](const MainThreadWatch &watch) {
        upower.vanish();
        upower.questions = 0;
        upower.appear();
        EXPECT_TRUE(eventually([&] { return upower.questions == 3 && watch.beats() > 50; }));
        EXPECT_FALSE(sources->battery());
        EXPECT_FALSE(sources->isSettled());
    });
    EXPECT_LT(hold, 5);
    upower.vanish();
    EXPECT_TRUE(settles());
    upower.isMute = false;
    upower.appear();
    EXPECT_TRUE(eventually([&] { return sources->battery().has_value(); }));
}

TEST_F(UPowerOnABus, collectsNoQuestionsForADaemonThatDoesNotAnswer) {
    upower.appear();
    listen();
    ASSERT_TRUE(settles());
    upower.isMute = true;
    const int before = upower.questions;
    for (int change = 0; change < 500; ++change) {
        upower.setSilently(upowerDevice(u"DisplayDevice"_s), u"org.freedesktop.UPower.Device"_s,
                           u"Percentage"_s, 12.0);
    }
    setDaemon({{u"OnBattery"_s, false}}); // comes behind the others
    EXPECT_TRUE(eventually([&] { return sources->battery()->isPluggedIn == true; }));
    EXPECT_TRUE(eventually([&] { return upower.questions == before + 1; }));
    EXPECT_EQ(sources->battery()->current, 42) << "the last answer is served";
}

TEST_F(UPowerOnABus, mayEndWithQuestionsUnderWay) {
    upower.isMute = true;
    upower.appear();
    listen();
    EXPECT_TRUE(eventually([&] { return upower.questions == 3; }));
    sources.reset();
    upower.vanish(); // the bus answers for it
    bool isTurned = false;
    QTimer::singleShot(0, [&] { isTurned = true; });
    EXPECT_TRUE(eventually([&] { return isTurned; }));
}

TEST_F(UPowerOnABus, followsAThousandRestartsWithoutGrowth) {
    setDevice(u"mouse"_s, peripheral(u"Mouse"_s, 70));
    upower.appear();
    listen();
    ASSERT_TRUE(settles());
    double percent = 40;
    const auto restartTenTimes = [&] {
        percent = 100 - percent;
        // Only who asks anew learns it.
        upower.store(upowerDevice(u"DisplayDevice"_s), u"org.freedesktop.UPower.Device"_s,
                     {{u"Percentage"_s, percent}});
        for (int restart = 0; restart < 10; ++restart) {
            upower.restart();
        }
        ASSERT_TRUE(eventually([&] {
            return sources->isSettled() && sources->battery() &&
                   sources->battery()->current == percent && sources->accessories().size() == 1;
        }));
    };
    for (int warmUp = 0; warmUp < 80; ++warmUp) {
        restartTenTimes();
    }
    const int enough = 200 * 66;
    const auto growth = leastGrowth(enough, [&] {
        for (int cycle = 0; cycle < 20; ++cycle) {
            restartTenTimes();
        }
    });
    RecordProperty("growth", static_cast<int>(growth));
    EXPECT_LT(growth, enough) << "less than 66 bytes a restart";
}

TEST_F(UPowerOnABus, followsAThousandChangesWithoutGrowth) {
    upower.appear();
    listen();
    ASSERT_TRUE(settles());
    int round = 0;
    const auto changeTenTimes = [&] {
        for (int change = 0; change < 10; ++change) {
            ++round;
            upower.signal(upowerDevice(u"DisplayDevice"_s), u"org.freedesktop.DBus.Properties"_s,
                          u"PropertiesChanged"_s,
                          {u"org.freedesktop.UPower.Device"_s,
                           QVariantMap{{u"Unread "_s + QString::number(round), true}},
                           QStringList()});
            setDevice(u"DisplayDevice"_s, {{u"Percentage"_s, 1.0 + round % 100}});
            setDevice(u"mouse"_s, peripheral(u"Mouse"_s, 1.0 + round % 100));
            announce(u"DeviceRemoved"_s, u"mouse"_s);
            announce(u"DeviceAdded"_s, u"mouse"_s);
        }
        ASSERT_TRUE(eventually([&] {
            return sources->isSettled() && sources->battery()->current == 1 + round % 100 &&
                   sources->accessories() ==
                       std::vector<AccessoryCharge>{{u"Mouse"_s, 1 + round % 100}};
        }));
    };
    for (int warmUp = 0; warmUp < 80; ++warmUp) {
        changeTenTimes();
    }
    const int enough = 200 * 33;
    const auto growth = leastGrowth(enough, [&] {
        for (int cycle = 0; cycle < 20; ++cycle) {
            changeTenTimes();
        }
    });
    RecordProperty("growth", static_cast<int>(growth));
    EXPECT_LT(growth, enough) << "less than 33 bytes a change";
}

} // namespace

} // namespace zeph
