// SPDX-License-Identifier: MIT
// The adapter against python3-dbusmock's model of the daemon, written by others.
#include "adapters/bus/NetworkManagerWiFi.h"

#include "adapters/bus/PrivateBus.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QProcessEnvironment>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

const QString service = u"org.freedesktop.NetworkManager"_s;
const QString manager = u"/org/freedesktop/NetworkManager"_s;

class MockedNetworkManager : public testing::Test {
protected:
    MockedNetworkManager() {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"DBUS_SYSTEM_BUS_ADDRESS"_s, bus.address());
        endWithThisProcess(m_mock);
        m_mock.setProcessEnvironment(environment);
        m_mock.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_mock.setStandardOutputFile(QProcess::nullDevice());
        m_mock.start(u"/usr/bin/python3"_s,
                     {u"-m"_s, u"dbusmock"_s, u"--system"_s, u"--template"_s, u"networkmanager"_s});
    }
    ~MockedNetworkManager() override {
        m_mock.kill();
        m_mock.waitForFinished(10'000);
    }

    bool isThere() {
        return eventually(
            [&] { return client.bus().interface()->isServiceRegistered(service).value(); });
    }
    QString call(const QString &method, const QVariantList &arguments) {
        QDBusMessage message = QDBusMessage::createMethodCall(
            service, manager, u"org.freedesktop.DBus.Mock"_s, method);
        message.setArguments(arguments);
        const QDBusMessage answer = client.bus().call(message, QDBus::Block, 10'000);
        EXPECT_EQ(answer.type(), QDBusMessage::ReplyMessage) << answer.errorMessage().toStdString();
        return answer.arguments().isEmpty() ? QString() : answer.arguments().at(0).toString();
    }
    QString addAccessPoint(const QString &device, const QString &name, const QString &ssid) {
        return call(u"AddAccessPoint"_s, {device, name, ssid, u"00:23:F8:7E:12:BB"_s, 2U, 2425U,
                                          5400U, QVariant::fromValue(uchar(82)), 0x100U});
    }

    PrivateBus bus;
    BusConnection client{bus.address()};

private:
    QProcess m_mock;
};

TEST_F(MockedNetworkManager, isFollowedFromJoiningToLeaving) {
    ASSERT_TRUE(isThere());
    const NetworkManagerWiFi wifi(client.bus());
    EXPECT_FALSE(wifi.ssid());

    const QString device = call(u"AddWiFiDevice"_s, {u"mock"_s, u"wlan0"_s, 100U});
    const QString access = addAccessPoint(device, u"Mock_AP"_s, u"The_SSID"_s);
    const QString settings =
        call(u"AddWiFiConnection"_s, {device, u"Mock_Con"_s, u"The_SSID"_s, u""_s});
    const QString active = call(u"AddActiveConnection"_s,
                                {QStringList{device}, settings, access, u"Mock_Active"_s, 2U});
    EXPECT_TRUE(eventually([&] { return wifi.ssid() == u"The_SSID"_s; }));

    call(u"RemoveActiveConnection"_s, {device, active});
    EXPECT_TRUE(eventually([&] { return !wifi.ssid(); }));
}

} // namespace

} // namespace zeph
