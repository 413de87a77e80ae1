// SPDX-License-Identifier: MIT
#include "adapters/power/LinuxAccessories.h"

#include "adapters/loop/QtRunLoop.h"
#include "adapters/power/BluezBatteries.h"
#include "adapters/power/SupplyTree.h"
#include "adapters/power/UPowerFixture.h"
#include "adapters/power/UPowerSources.h"
#include "sensing/DeviceBatteryMonitor.h"
#include "support/LeastGrowth.h"
#include "support/QtPrinters.h"

#include <QElapsedTimer>

#include <atomic>
#include <future>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

using Charges = std::vector<AccessoryCharge>;

const QString headset = u"/org/bluez/hci0/dev_11_22_33_44_55_66"_s;
const QString battery1 = u"org.bluez.Battery1"_s;

QVariant percentByte(int percent) {
    return QVariant::fromValue(static_cast<uchar>(percent));
}

class AccessoriesOnABus : public UPowerFixture {
protected:
    void addBluetooth(const QString &path, const QString &alias, const QVariant &percent) {
        bluez.set(path, u"org.bluez.Device1"_s, {{u"Alias"_s, alias}, {u"Name"_s, u"factory"_s}});
        bluez.set(path, battery1, {{u"Percentage"_s, percent}});
    }
    /// The answer to a question that is asked on another thread, while this one turns its loop.
    template <typename Question>
    auto away(Question question) {
        auto answer = std::async(std::launch::async, std::move(question));
        EXPECT_TRUE(eventually(
            [&] { return answer.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }));
        return answer.get();
    }
    Charges services() {
        return away([this] { return accessories.powerSources(); });
    }
    bool become(const Charges &expected) {
        return eventually([&] { return accessories.powerSources() == expected; });
    }

    SupplyTree tree;
    FakePowerDaemon bluez{bus.address(), u"org.bluez"_s};
    QtRunLoop loop;
    UPowerSources upowerSources{client.bus()};
    BluezBatteries bluezBatteries{client.bus()};
    LinuxAccessories accessories{tree.root(), upowerSources, bluezBatteries, loop};
    DeviceBatteryMonitor monitor{accessories};
};

TEST_F(AccessoriesOnABus, areNoneWithoutDevicesAndServices) {
    EXPECT_EQ(services(), Charges{});
    EXPECT_EQ(accessories.inputDevices(), Charges{});
}

TEST_F(AccessoriesOnABus, listInputDevicesWithTheirModel) {
    tree.addBattery(u"BAT0"_s, "Charging", "1", "1");
    tree.add(u"hid-mouse-battery"_s, {{"type", "Battery"},
                                      {"scope", "Device"},
                                      {"present", "1"},
                                      {"online", "1"},
                                      {"model_name", "Travel Mouse"},
                                      {"capacity", "64"}});
    tree.add(u"nameless"_s, {{"type", "Battery"}, {"scope", "Device"}, {"capacity", "255"}});
    tree.add(u"unread"_s, {{"type", "Battery"}, {"scope", "Device"}, {"model_name", "Pen"}});
    EXPECT_EQ(accessories.inputDevices(),
              (Charges{{u"Travel Mouse"_s, 64}, {std::nullopt, 255}, {u"Pen"_s, std::nullopt}}));
}

TEST_F(AccessoriesOnABus, leaveOutInputDevicesThatAreSwitchedOff) {
    tree.add(u"off"_s,
             {{"type", "Battery"}, {"scope", "Device"}, {"online", "0"}, {"capacity", "9"}});
    tree.add(u"out"_s,
             {{"type", "Battery"}, {"scope", "Device"}, {"present", "0"}, {"capacity", "9"}});
    EXPECT_EQ(accessories.inputDevices(), Charges{});
}

TEST_F(AccessoriesOnABus, theFirstQuestionWaitsForBothServices) {
    setDevice(u"mouse"_s, peripheral(u"Mouse"_s, 70));
    addBluetooth(headset, u"Headset"_s, percentByte(50));
    upower.appear();
    bluez.appear();
    ASSERT_TRUE(eventually([&] { return upowerSources.accessories().size() == 1; }));
    EXPECT_EQ(bluez.questions, 0) << "nobody wanted to know yet";
    EXPECT_EQ(services(), (Charges{{u"Mouse"_s, 70}, {u"Headset"_s, 50}}));
    EXPECT_EQ(bluez.questions, 1);
    EXPECT_EQ(services().size(), 2U);
    EXPECT_EQ(bluez.questions, 1) << "later ones are answered from the copy";
}

TEST_F(AccessoriesOnABus, aServiceThatDoesNotAnswerDelaysAQuestionByLessThanASecond) {
    bluez.isMute = true;
    setDevice(u"mouse"_s, peripheral(u"Mouse"_s, 70));
    upower.appear();
    bluez.appear();
    QElapsedTimer taken;
    taken.start();
    EXPECT_EQ(services(), (Charges{{u"Mouse"_s, 70}}));
    EXPECT_LT(taken.elapsed(), 5'000) << "a waiting call would take 25 s";
    bluez.vanish();
    bluez.isMute = false;
    addBluetooth(headset, u"Headset"_s, percentByte(50));
    bluez.appear();
    EXPECT_TRUE(become({{u"Mouse"_s, 70}, {u"Headset"_s, 50}}));
}

TEST_F(AccessoriesOnABus, followBluetoothDevicesThatComeChangeAndGo) {
    bluez.set(headset, u"org.bluez.Device1"_s, {{u"Alias"_s, u"Headset"_s}});
    bluez.appear();
    EXPECT_EQ(services(), Charges{}) << "it is paired and away";
    bluez.set(headset, battery1, {{u"Percentage"_s, percentByte(90)}});
    bluez.interfacesAdded(headset);
    EXPECT_TRUE(become({{u"Headset"_s, 90}}));
    EXPECT_TRUE(eventually([&] { return bluezBatteries.isSettled(); }));
    const int questions = bluez.questions;
    bluez.set(headset, battery1, {{u"Percentage"_s, percentByte(80)}});
    EXPECT_TRUE(become({{u"Headset"_s, 80}}));
    EXPECT_EQ(bluez.questions, questions) << "the change brought its value";
    bluez.interfacesRemoved(headset, {battery1});
    EXPECT_TRUE(become({}));
    bluez.vanish();
    bluez.appear();
    EXPECT_TRUE(become({{u"Headset"_s, 80}})) << "a daemon that starts anew is asked anew";
    bluez.vanish();
    EXPECT_TRUE(become({}));
}

TEST_F(AccessoriesOnABus, areNotTroubledByDevicesThatPassBy) {
    bluez.appear();
    services();
    const int questions = bluez.questions;
    bluez.set(u"/org/bluez/hci0/dev_0"_s, u"org.bluez.Device1"_s, {{u"Alias"_s, u"Passer-by"_s}});
    for (int index = 0; index < 100; ++index) {
        bluez.interfacesAdded(u"/org/bluez/hci0/dev_0"_s);
    }
    addBluetooth(headset, u"Headset"_s, percentByte(90));
    bluez.interfacesAdded(headset); // comes behind them
    EXPECT_TRUE(become({{u"Headset"_s, 90}}));
    // One for the device, and one more where its two property changes came before the answer.
    EXPECT_LE(bluez.questions, questions + 2);
}

TEST_F(AccessoriesOnABus, nameABluetoothDeviceAfterItsAliasOrElseItsName) {
    addBluetooth(headset, u"  "_s, percentByte(50));
    bluez.set(u"/org/bluez/hci0/dev_2"_s, battery1, {{u"Percentage"_s, u"90"_s}});
    bluez.appear();
    EXPECT_EQ(services(), (Charges{{u"factory"_s, 50}, {std::nullopt, std::nullopt}}));
}

TEST_F(AccessoriesOnABus, mergeIntoOneListWithTheKernelsPercentFirst) {
    tree.add(u"hid"_s, {{"type", "Battery"},
                        {"scope", "Device"},
                        {"model_name", "Travel Mouse"},
                        {"capacity", "64"}});
    setDevice(u"mouse"_s, peripheral(u"Travel Mouse"_s, 20));
    setDevice(u"headset"_s, peripheral(u"Headset"_s, 40));
    addBluetooth(headset, u"Headset"_s, percentByte(41));
    addBluetooth(headset + u"_2"_s, u"Empty"_s, percentByte(0));
    upower.appear();
    bluez.appear();
    ASSERT_TRUE(eventually([&] { return upowerSources.accessories().size() == 2; }));
    EXPECT_EQ(away([this] { return monitor.sample(); }),
              (std::vector<DeviceBattery>{{u"Headset"_s, 40}, {u"Travel Mouse"_s, 64}}));
}

TEST_F(AccessoriesOnABus, mayBeAskedFromManyThreadsWhileTheServicesChange) {
    upower.appear();
    bluez.appear();
    std::atomic<bool> isEnough = false;
    std::vector<std::future<bool>> askers;
    for (int thread = 0; thread < 4; ++thread) {
        askers.push_back(std::async(std::launch::async, [&] {
            bool isWhole = true;
            while (!isEnough) {
                for (const DeviceBattery &device : monitor.sample()) {
                    isWhole = isWhole && device.name == u"Mouse"_s;
                }
            }
            return isWhole;
        }));
    }
    for (int percent = 1; percent <= 100; ++percent) {
        setDevice(u"mouse"_s, peripheral(u"Mouse"_s, percent));
        announce(u"DeviceAdded"_s, u"mouse"_s);
    }
    EXPECT_TRUE(eventually([&] {
        return upowerSources.accessories() == Charges{{u"Mouse"_s, 100}};
    }));
    isEnough = true;
    for (auto &asker : askers) {
        EXPECT_TRUE(asker.get());
    }
}

TEST_F(AccessoriesOnABus, followAThousandRestartsOfBluezWithoutGrowth) {
    addBluetooth(headset, u"Headset"_s, percentByte(50));
    bluez.appear();
    services();
    ASSERT_TRUE(become({{u"Headset"_s, 50}}));
    int percent = 40;
    const auto restartTenTimes = [&] {
        percent = 100 - percent;
        bluez.store(headset, battery1, {{u"Percentage"_s, percentByte(percent)}});
        for (int restart = 0; restart < 10; ++restart) {
            bluez.restart();
        }
        ASSERT_TRUE(eventually([&] {
            return bluezBatteries.isSettled() &&
                   bluezBatteries.accessories() == Charges{{u"Headset"_s, percent}};
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

} // namespace

} // namespace zeph
