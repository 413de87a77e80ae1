// SPDX-License-Identifier: MIT
// The adapter against python3-dbusmock's notification service, written by others, with the
// property that Plasma's has.
#include "adapters/focus/NotificationSwitch.h"

#include "adapters/bus/PrivateBus.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QProcessEnvironment>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

const QString serviceName = u"org.freedesktop.Notifications"_s;
const QString path = u"/org/freedesktop/Notifications"_s;

class MockedNotifications : public testing::Test {
protected:
    ~MockedNotifications() override { stop(); }

    void start() {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, bus.address());
        m_mock = std::make_unique<QProcess>();
        endWithThisProcess(*m_mock);
        m_mock->setProcessEnvironment(environment);
        m_mock->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_mock->setStandardOutputFile(QProcess::nullDevice());
        m_mock->start(u"/usr/bin/python3"_s, {u"-m"_s, u"dbusmock"_s, u"--session"_s,
                                              u"--template"_s, u"notification_daemon"_s});
        ASSERT_TRUE(eventually(
            [&] { return user.bus().interface()->isServiceRegistered(serviceName).value(); }));
    }
    void stop() {
        if (m_mock) {
            m_mock->kill();
            m_mock->waitForFinished(10'000);
        }
    }
    void call(const QString &interface, const QString &method, const QVariantList &arguments) {
        QDBusMessage message = QDBusMessage::createMethodCall(serviceName, path, interface, method);
        message.setArguments(arguments);
        const QDBusMessage answer = user.bus().call(message, QDBus::Block, 10'000);
        EXPECT_EQ(answer.type(), QDBusMessage::ReplyMessage) << answer.errorMessage().toStdString();
    }
    void addInhibited(bool value) {
        call(u"org.freedesktop.DBus.Mock"_s, u"AddProperty"_s,
             {serviceName, u"Inhibited"_s, QVariant::fromValue(QDBusVariant(value))});
    }
    /// Has the mock signal the change as well.
    void setInhibited(bool value) {
        call(u"org.freedesktop.DBus.Properties"_s, u"Set"_s,
             {serviceName, u"Inhibited"_s, QVariant::fromValue(QDBusVariant(value))});
    }

    PrivateBus bus;
    BusConnection client{bus.address()};
    BusConnection user{bus.address()};

private:
    std::unique_ptr<QProcess> m_mock;
};

TEST_F(MockedNotifications, areFollowedFromStartToEnd) {
    start();
    addInhibited(false);
    const NotificationSwitch quiet(client.bus(), [] {});
    const auto becomes = [&](std::optional<bool> wanted) {
        return eventually([&] { return quiet.isQuiet() == wanted; });
    };
    EXPECT_TRUE(becomes(false));
    setInhibited(true);
    EXPECT_TRUE(becomes(true));
    setInhibited(false);
    EXPECT_TRUE(becomes(false));
    stop();
    EXPECT_TRUE(becomes(std::nullopt));
}

TEST_F(MockedNotifications, withoutThePropertyAreUnknown) {
    start();
    const NotificationSwitch early(client.bus(), [] {});
    // The switch asks the bus for the service first, and the service then.
    const QDBusPendingCallWatcher marker(client.bus().asyncCall(QDBusMessage::createMethodCall(
        u"org.freedesktop.DBus"_s, u"/"_s, u"org.freedesktop.DBus"_s, u"GetId"_s)));
    bool isAnswered = false; // told in the order of the answers
    QObject::connect(&marker, &QDBusPendingCallWatcher::finished, [&] { isAnswered = true; });
    ASSERT_TRUE(eventually([&] { return isAnswered; }));
    // Answered after the switch's own question, which went the same way before.
    const QDBusMessage ping = QDBusMessage::createMethodCall(
        serviceName, path, u"org.freedesktop.DBus.Peer"_s, u"Ping"_s);
    ASSERT_EQ(client.bus().call(ping, QDBus::Block, 10'000).type(), QDBusMessage::ReplyMessage);
    addInhibited(true);
    const NotificationSwitch later(client.bus(), [] {});
    EXPECT_TRUE(eventually([&] { return later.isQuiet() == true; }));
    EXPECT_EQ(early.isQuiet(), std::nullopt) << "it was told that there is no such property";
}

} // namespace

} // namespace zeph
