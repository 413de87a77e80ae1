// SPDX-License-Identifier: MIT
#include "adapters/bus/NetworkManagerWiFi.h"

#include "adapters/bus/FakeNetworkManager.h"
#include "support/LeastGrowth.h"

#include <QElapsedTimer>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

const QString wired = nmPath(u"/ActiveConnection/1"_s);
const QString wireless = nmPath(u"/ActiveConnection/2"_s);
const QString secondWireless = nmPath(u"/ActiveConnection/3"_s);
const QString accessPoint = nmPath(u"/AccessPoint/1"_s);
const QString otherAccessPoint = nmPath(u"/AccessPoint/2"_s);
const QString wirelessType = u"802-11-wireless"_s;

class NetworkManagerWiFiOnABus : public testing::Test {
protected:
    NetworkManagerWiFiOnABus() {
        daemon.addConnection(wired, u"802-3-ethernet"_s, u"/"_s);
        daemon.addConnection(wireless, wirelessType, accessPoint);
        daemon.setSsid(accessPoint, "home");
        daemon.setSsid(otherAccessPoint, "office");
    }

    void joinHome() {
        daemon.setPrimary(wired);
        daemon.setActive({wired, wireless});
    }
    NetworkManagerWiFi &listen() {
        wifi = std::make_unique<NetworkManagerWiFi>(client.bus());
        return *wifi;
    }
    testing::AssertionResult becomes(const std::optional<QString> &name) {
        if (eventually([&] { return wifi->ssid() == name; })) {
            return testing::AssertionSuccess();
        }
        return testing::AssertionFailure() << wifi->ssid().value_or(u"(absent)"_s).toStdString();
    }
    /// True when all that was sent to the client so far has been worked off.
    bool settles() {
        BusConnection marker(bus.address());
        int before = -1;
        // Silent for two turns of a question to the bus itself, which keeps its order.
        return eventually([&] {
            const bool still = before == daemon.questions;
            before = daemon.questions;
            marker.bus().call(QDBusMessage::createMethodCall(
                u"org.freedesktop.DBus"_s, u"/"_s, u"org.freedesktop.DBus"_s, u"GetId"_s));
            return still;
        });
    }

    PrivateBus bus;
    FakeNetworkManager daemon{bus.address()};
    BusConnection client{bus.address()};
    std::unique_ptr<NetworkManagerWiFi> wifi;
};

TEST_F(NetworkManagerWiFiOnABus, hasNoNameWithoutTheDaemon) {
    listen();
    EXPECT_TRUE(settles());
    EXPECT_FALSE(wifi->ssid());
}

TEST_F(NetworkManagerWiFiOnABus, hasNoNameWithoutABus) {
    bus.stop();
    BusConnection nowhere(bus.address());
    const NetworkManagerWiFi adapter(nowhere.bus());
    EXPECT_FALSE(adapter.ssid());
}

TEST_F(NetworkManagerWiFiOnABus, namesTheJoinedNetwork) {
    joinHome();
    daemon.appear();
    listen();
    EXPECT_TRUE(becomes(u"home"_s));
}

TEST_F(NetworkManagerWiFiOnABus, hasNoNameOnAWiredMachine) {
    daemon.setPrimary(wired);
    daemon.setActive({wired});
    daemon.appear();
    listen();
    EXPECT_TRUE(eventually([&] { return daemon.questions == 2; }));
    EXPECT_TRUE(settles());
    EXPECT_FALSE(wifi->ssid());
}

TEST_F(NetworkManagerWiFiOnABus, hasNoNameWhileJoining) {
    daemon.addConnection(wireless, wirelessType, accessPoint, 1);
    joinHome();
    daemon.appear();
    listen();
    EXPECT_TRUE(eventually([&] { return daemon.questions == 3; }));
    EXPECT_TRUE(settles());
    EXPECT_FALSE(wifi->ssid());
    daemon.addConnection(wireless, wirelessType, accessPoint, 2);
    EXPECT_TRUE(becomes(u"home"_s));
}

TEST_F(NetworkManagerWiFiOnABus, prefersThePrimaryOfTwoWirelessConnections) {
    daemon.addConnection(secondWireless, wirelessType, otherAccessPoint);
    daemon.setPrimary(secondWireless);
    daemon.setActive({wireless, secondWireless});
    daemon.appear();
    listen();
    EXPECT_TRUE(becomes(u"office"_s));
}

TEST_F(NetworkManagerWiFiOnABus, followsJoiningAndLeaving) {
    daemon.appear();
    listen();
    EXPECT_TRUE(eventually([&] { return daemon.questions == 1; }));
    joinHome();
    EXPECT_TRUE(becomes(u"home"_s));
    daemon.setActive({wired});
    EXPECT_TRUE(becomes(std::nullopt));
}

TEST_F(NetworkManagerWiFiOnABus, followsRoamingToAnotherAccessPoint) {
    joinHome();
    daemon.appear();
    listen();
    ASSERT_TRUE(becomes(u"home"_s));
    daemon.addConnection(wireless, wirelessType, otherAccessPoint);
    EXPECT_TRUE(becomes(u"office"_s));
}

TEST_F(NetworkManagerWiFiOnABus, followsAHiddenNameUntilItShows) {
    daemon.setSsid(accessPoint, {});
    joinHome();
    daemon.appear();
    listen();
    EXPECT_TRUE(eventually([&] { return daemon.questions >= 4; }));
    EXPECT_TRUE(settles());
    EXPECT_FALSE(wifi->ssid());
    daemon.setSsid(accessPoint, QByteArray(6, '\0'));
    EXPECT_TRUE(eventually([&] { return daemon.questions >= 5; })) << "the access point alone";
    EXPECT_TRUE(settles());
    EXPECT_FALSE(wifi->ssid()) << "zero bytes hide a name as well";
    daemon.setSsid(accessPoint, "cellar");
    EXPECT_TRUE(becomes(u"cellar"_s));
}

TEST_F(NetworkManagerWiFiOnABus, asksNothingWhileOnlyTheStrengthChanges) {
    joinHome();
    daemon.appear();
    listen();
    ASSERT_TRUE(becomes(u"home"_s));
    ASSERT_TRUE(settles());
    const int before = daemon.questions;
    for (int strength = 0; strength < 50; ++strength) {
        daemon.set(accessPoint, nmInterface(u".AccessPoint"_s), u"Strength"_s, strength);
        daemon.set(nmPath({}), nmInterface({}), u"Connectivity"_s, uint(strength));
    }
    EXPECT_TRUE(settles());
    EXPECT_EQ(daemon.questions, before);
}

TEST_F(NetworkManagerWiFiOnABus, joinsABurstOfChangesIntoFewQuestions) {
    joinHome();
    daemon.appear();
    listen();
    ASSERT_TRUE(becomes(u"home"_s));
    ASSERT_TRUE(settles());
    daemon.questions = 0;
    for (uint index = 0; index < 200; ++index) {
        daemon.addConnection(wireless, wirelessType, accessPoint, index % 2 + 1);
    }
    EXPECT_TRUE(becomes(u"home"_s));
    EXPECT_TRUE(settles());
    EXPECT_TRUE(becomes(u"home"_s));
    EXPECT_LT(daemon.questions, 400) << "of 2400 without";
}

TEST_F(NetworkManagerWiFiOnABus, showsWhatIsNotUtf8AsReplacementCharacters) {
    daemon.setSsid(accessPoint, QByteArray("caf\xE9\n\xF0\x9F\x8F\xA0"));
    joinHome();
    daemon.appear();
    listen();
    EXPECT_TRUE(becomes(QString::fromUtf8("caf\uFFFD\uFFFD\U0001F3E0")));
}

TEST_F(NetworkManagerWiFiOnABus, survivesPropertiesOfOtherTypes) {
    joinHome();
    daemon.set(nmPath({}), nmInterface({}), u"ActiveConnections"_s, u"no list"_s);
    daemon.set(nmPath({}), nmInterface({}), u"PrimaryConnection"_s, 5);
    daemon.appear();
    listen();
    EXPECT_TRUE(eventually([&] { return daemon.questions == 1; }));
    EXPECT_TRUE(settles());
    EXPECT_FALSE(wifi->ssid());
    joinHome();
    EXPECT_TRUE(becomes(u"home"_s));
    daemon.set(otherAccessPoint, nmInterface(u".AccessPoint"_s), u"Ssid"_s, 17);
    daemon.addConnection(wireless, wirelessType, otherAccessPoint);
    EXPECT_TRUE(eventually([&] { return wifi->ssid() != u"home"_s; }));
}

TEST_F(NetworkManagerWiFiOnABus, hasNoNameWhenTheAccessPointIsGone) {
    daemon.addConnection(wireless, wirelessType, nmPath(u"/AccessPoint/gone"_s));
    joinHome();
    daemon.appear();
    listen();
    EXPECT_TRUE(eventually([&] { return daemon.questions >= 4; }));
    EXPECT_TRUE(settles());
    EXPECT_FALSE(wifi->ssid());
}

TEST_F(NetworkManagerWiFiOnABus, forgetsTheNameWithTheDaemonAndFindsItAgain) {
    joinHome();
    daemon.appear();
    listen();
    ASSERT_TRUE(becomes(u"home"_s));
    daemon.vanish();
    EXPECT_TRUE(becomes(std::nullopt));
    daemon.setSsid(accessPoint, "after the restart");
    daemon.appear();
    EXPECT_TRUE(becomes(u"after the restart"_s));
}

TEST_F(NetworkManagerWiFiOnABus, neverWaitsForAMuteDaemon) {
    joinHome();
    daemon.isMute = true;
    daemon.appear();
    QElapsedTimer taken;
    taken.start();
    listen();
    EXPECT_FALSE(wifi->ssid());
    EXPECT_LT(taken.elapsed(), 2000) << "a waiting call would take 25 s";
    EXPECT_TRUE(eventually([&] { return daemon.questions == 1; }));
    daemon.vanish();
    daemon.isMute = false;
    daemon.appear();
    EXPECT_TRUE(becomes(u"home"_s));
}

TEST_F(NetworkManagerWiFiOnABus, mayEndWithQuestionsUnderWay) {
    joinHome();
    daemon.appear();
    daemon.isMute = true;
    listen();
    EXPECT_TRUE(eventually([&] { return daemon.questions >= 1; }));
    wifi.reset();
    EXPECT_TRUE(settles());
}

TEST_F(NetworkManagerWiFiOnABus, usesNoMoreMemoryAfterAHundredRestartsOfTheDaemon) {
    joinHome();
    listen();
    const auto restart = [&] {
        daemon.appear();
        ASSERT_TRUE(becomes(u"home"_s));
        daemon.vanish();
        ASSERT_TRUE(becomes(std::nullopt));
    };
    for (int warmUp = 0; warmUp < 60; ++warmUp) {
        restart();
    }
    const int enough = 20 * 300;
    const auto growth = leastGrowth(enough, [&] {
        for (int cycle = 0; cycle < 20; ++cycle) {
            restart();
        }
    });
    RecordProperty("growth", static_cast<int>(growth));
    EXPECT_LT(growth, enough) << "less than a call's record a restart";
}

} // namespace

} // namespace zeph
