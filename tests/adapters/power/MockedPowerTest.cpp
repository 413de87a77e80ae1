// SPDX-License-Identifier: MIT
// The adapters against python3-dbusmock's models of the daemons, written by others.
#include "adapters/bus/PrivateBus.h"
#include "adapters/power/BluezBatteries.h"
#include "adapters/power/LinuxPowerSources.h"
#include "adapters/power/QuietestHold.h"
#include "adapters/power/SupplyTree.h"
#include "adapters/power/UPowerSources.h"
#include "base/Background.h"
#include "sensing/BatteryMonitor.h"
#include "support/ManualRunLoop.h"
#include "support/ManualTaskExecutor.h"
#include "support/QtPrinters.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QProcessEnvironment>

#include <csignal>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

/// A mocked daemon in a process of its own.
class MockedDaemon {
public:
    MockedDaemon(const QString &address, const QString &templateName) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"DBUS_SYSTEM_BUS_ADDRESS"_s, address);
        m_process.setProcessEnvironment(environment);
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.setStandardOutputFile(QProcess::nullDevice());
        m_process.start(u"/usr/bin/python3"_s,
                        {u"-m"_s, u"dbusmock"_s, u"--system"_s, u"--template"_s, templateName});
    }
    ~MockedDaemon() { end(); }
    MockedDaemon(const MockedDaemon &) = delete;
    MockedDaemon &operator=(const MockedDaemon &) = delete;

    void end() {
        m_process.kill();
        m_process.waitForFinished(10'000);
    }
    void send(int signal) const { ::kill(static_cast<pid_t>(m_process.processId()), signal); }

private:
    QProcess m_process;
};

class MockedPower : public testing::Test {
protected:
    bool isThere(const QString &service) {
        return eventually(
            [&] { return client.bus().interface()->isServiceRegistered(service).value(); }, 60'000);
    }
    QString call(const QString &service, const QString &path, const QString &interface,
                 const QString &method, const QVariantList &arguments) {
        QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, method);
        message.setArguments(arguments);
        const QDBusMessage answer = client.bus().call(message, QDBus::Block, 20'000);
        EXPECT_EQ(answer.type(), QDBusMessage::ReplyMessage) << answer.errorMessage().toStdString();
        return answer.arguments().isEmpty() ? QString() : answer.arguments().at(0).toString();
    }
    QString callUPower(const QString &method, const QVariantList &arguments) {
        return call(u"org.freedesktop.UPower"_s, u"/org/freedesktop/UPower"_s,
                    u"org.freedesktop.DBus.Mock"_s, method, arguments);
    }
    void setDisplay(uint state, double percentage, qlonglong toEmpty, qlonglong toFull) {
        callUPower(u"SetupDisplayDevice"_s, {2U, state, percentage, percentage / 2, 50.0, 10.0,
                                             toEmpty, toFull, true, u"battery-good"_s, 1U});
    }
    bool becomes(const BatteryInfo &expected) {
        return eventually([&] {
            monitor.sample();
            return monitor.info() == expected;
        });
    }

    PrivateBus bus;
    BusConnection client{bus.address()};
    SupplyTree tree;
    ManualClock clock;
    ManualRunLoop loop{clock};
    ManualTaskExecutor executor;
    const Background background = Background::over(executor, loop);
    UPowerSources upower{client.bus()};
    LinuxPowerSources sources{upower, tree.root(), background};
    BatteryMonitor monitor{sources};
};

TEST_F(MockedPower, aLaptopIsFollowedFromChargingToDischarging) {
    const MockedDaemon daemon(bus.address(), u"upower"_s);
    ASSERT_TRUE(isThere(u"org.freedesktop.UPower"_s));
    callUPower(u"AddAC"_s, {u"mock_AC"_s, u"Mock AC"_s});
    callUPower(u"AddChargingBattery"_s, {u"mock_BAT"_s, u"Mock Battery"_s, 30.0, qlonglong(1200)});
    setDisplay(1, 30, 0, 1200);
    EXPECT_TRUE(becomes({30, true, true, 20, {}, {}, true}));

    callUPower(
        u"SetDeviceProperties"_s,
        {QVariant::fromValue(QDBusObjectPath(u"/org/freedesktop/UPower/devices/DisplayDevice"_s)),
         QVariantMap{{u"State"_s, 2U},
                     {u"Percentage"_s, 29.0},
                     {u"TimeToFull"_s, qlonglong(0)},
                     {u"TimeToEmpty"_s, qlonglong(3600)}}});
    call(u"org.freedesktop.UPower"_s, u"/org/freedesktop/UPower"_s,
         u"org.freedesktop.DBus.Properties"_s, u"Set"_s,
         {u"org.freedesktop.UPower"_s, u"OnBattery"_s, QVariant::fromValue(QDBusVariant(true))});
    EXPECT_TRUE(becomes({29, false, false, 60, {}, {}, true}));
}

TEST_F(MockedPower, aDesktopHasNoBattery) {
    const MockedDaemon daemon(bus.address(), u"upower"_s);
    ASSERT_TRUE(isThere(u"org.freedesktop.UPower"_s));
    BatteryInfo none;
    none.isPresent = false;
    EXPECT_TRUE(eventually([&] { return upower.battery().has_value(); }));
    EXPECT_TRUE(becomes(none));
}

TEST_F(MockedPower, aHungDaemonHoldsNothingAndItsLastWordIsServed) {
    const MockedDaemon daemon(bus.address(), u"upower"_s);
    ASSERT_TRUE(isThere(u"org.freedesktop.UPower"_s));
    setDisplay(2, 64, 3600, 0);
    ASSERT_TRUE(becomes({64, false, true, 60, {}, {}, true}));
    daemon.send(SIGSTOP);
    // To subscribe is to ask the bus, which is well; the questions go to the daemon.
    auto late = std::make_unique<UPowerSources>(client.bus());
    const double hold = quietestHoldMs([&](const MainThreadWatch &watch) {
        EXPECT_TRUE(eventually([&] {
            monitor.sample();
            return watch.beats() > 50;
        }));
    });
    EXPECT_LT(hold, 5);
    EXPECT_FALSE(late->isSettled()) << "the questions are under way";
    late.reset();
    EXPECT_EQ(monitor.info().percentage, 64);
    daemon.send(SIGCONT);
    setDisplay(2, 63, 3600, 0);
    EXPECT_TRUE(becomes({63, false, true, 60, {}, {}, true}));
}

TEST_F(MockedPower, aDaemonThatEndsLeavesTheKernelsWordAndComesBack) {
    tree.addMains("1");
    tree.addBattery(u"BAT0"_s, "Full", "50000000", "0");
    auto daemon = std::make_unique<MockedDaemon>(bus.address(), u"upower"_s);
    ASSERT_TRUE(isThere(u"org.freedesktop.UPower"_s));
    setDisplay(2, 64, 3600, 0);
    ASSERT_TRUE(becomes({64, false, true, 60, {}, {}, true}));
    daemon->end();
    ASSERT_TRUE(eventually([&] { return !upower.battery(); }));
    executor.runAll();
    loop.drain();
    EXPECT_TRUE(becomes({100, false, true, {}, 83, 212, true}));
    daemon = std::make_unique<MockedDaemon>(bus.address(), u"upower"_s);
    ASSERT_TRUE(isThere(u"org.freedesktop.UPower"_s));
    setDisplay(2, 50, 3600, 0);
    EXPECT_TRUE(becomes({50, false, true, 60, 83, 212, true}));
}

TEST_F(MockedPower, aBluetoothHeadsetIsFoundAndFollowed) {
    const MockedDaemon daemon(bus.address(), u"bluez5"_s);
    ASSERT_TRUE(isThere(u"org.bluez"_s));
    call(u"org.bluez"_s, u"/org/bluez"_s, u"org.bluez.Mock"_s, u"AddAdapter"_s,
         {u"hci0"_s, u"desk"_s});
    const QString path = call(u"org.bluez"_s, u"/org/bluez"_s, u"org.bluez.Mock"_s, u"AddDevice"_s,
                              {u"hci0"_s, u"11:22:33:44:55:66"_s, u"Headset"_s});
    ASSERT_FALSE(path.isEmpty());
    const QVariantMap battery{{u"Percentage"_s, QVariant::fromValue(uchar(75))}};
    call(u"org.bluez"_s, path, u"org.freedesktop.DBus.Mock"_s, u"AddProperties"_s,
         {u"org.bluez.Battery1"_s, battery});

    BluezBatteries bluez(client.bus());
    bluez.start();
    const auto has = [&](std::vector<AccessoryCharge> expected) {
        return eventually([&] { return bluez.accessories() == expected; });
    };
    EXPECT_TRUE(has({{u"Headset"_s, 75}}));
    call(u"org.bluez"_s, path, u"org.freedesktop.DBus.Mock"_s, u"UpdateProperties"_s,
         {u"org.bluez.Battery1"_s, QVariantMap{{u"Percentage"_s, QVariant::fromValue(uchar(74))}}});
    EXPECT_TRUE(has({{u"Headset"_s, 74}}));
}

} // namespace

} // namespace zeph
