// SPDX-License-Identifier: MIT
// The adapter against Xfce's own settings daemon.
#include "adapters/focus/XfconfSwitch.h"

#include "adapters/bus/PrivateBus.h"

#include <QDBusMessage>
#include <QDBusVariant>
#include <QDir>
#include <QProcessEnvironment>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

const QString serviceName = u"org.xfce.Xfconf"_s;

/// Where the distribution puts the daemon, in a folder named for the machine.
QString daemonPath() {
    const QDir libraries(u"/usr/lib"_s);
    for (const QString &folder : libraries.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QString path = libraries.filePath(folder + u"/xfce4/xfconf/xfconfd"_s);
        if (QFile::exists(path)) {
            return path;
        }
    }
    return {};
}

class RealXfconf : public testing::Test {
protected:
    ~RealXfconf() override { stop(); }

    void start() {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, bus.address());
        environment.insert(u"HOME"_s, m_home.path());
        environment.insert(u"XDG_CONFIG_HOME"_s, m_home.path());
        m_daemon = std::make_unique<QProcess>();
        endWithThisProcess(*m_daemon);
        m_daemon->setProcessEnvironment(environment);
        m_daemon->start(daemonPath(), {});
        ASSERT_TRUE(m_daemon->waitForStarted(10'000)) << "xfconfd is not installed";
    }
    void stop() {
        if (m_daemon) {
            m_daemon->kill();
            m_daemon->waitForFinished(10'000);
        }
    }
    void call(const QString &method, const QVariantList &arguments) {
        QDBusMessage message =
            QDBusMessage::createMethodCall(serviceName, u"/org/xfce/Xfconf"_s, serviceName, method);
        message.setArguments(arguments);
        const QDBusMessage answer = user.bus().call(message, QDBus::Block, 10'000);
        EXPECT_EQ(answer.type(), QDBusMessage::ReplyMessage) << answer.errorMessage().toStdString();
    }
    void set(const QString &channel, const QString &property, const QVariant &value) {
        call(u"SetProperty"_s, {channel, property, QVariant::fromValue(QDBusVariant(value))});
    }
    void setQuiet(const QVariant &value) { set(u"xfce4-notifyd"_s, u"/do-not-disturb"_s, value); }
    bool becomes(std::optional<bool> wanted) {
        return eventually([&] { return quiet.isQuiet() == wanted; });
    }

    PrivateBus bus;
    BusConnection client{bus.address()};
    BusConnection user{bus.address()};
    XfconfSwitch quiet{client.bus(), [] {}};

private:
    QTemporaryDir m_home;
    std::unique_ptr<QProcess> m_daemon;
};

TEST_F(RealXfconf, isFollowedFromUnsetToOnAndBack) {
    EXPECT_EQ(quiet.isQuiet(), std::nullopt);
    start();
    ASSERT_TRUE(becomes(false)) << "what was never used is off";
    set(u"xfce4-notifyd"_s, u"/theme"_s, u"Default"_s);
    setQuiet(true);
    EXPECT_TRUE(becomes(true));
    setQuiet(false);
    EXPECT_TRUE(becomes(false));
    setQuiet(true);
    EXPECT_TRUE(becomes(true));
    call(u"ResetProperty"_s, {u"xfce4-notifyd"_s, u"/do-not-disturb"_s, false});
    EXPECT_TRUE(becomes(false)) << "a property that is reset is off";
}

TEST_F(RealXfconf, isReadWhenItIsSetAlready) {
    start();
    ASSERT_TRUE(becomes(false));
    setQuiet(true);
    const XfconfSwitch late(client.bus(), [] {});
    EXPECT_TRUE(eventually([&] { return late.isQuiet() == true; }));
}

TEST_F(RealXfconf, isUnknownWithAValueOfAnotherType) {
    start();
    ASSERT_TRUE(becomes(false));
    setQuiet(u"yes"_s);
    EXPECT_TRUE(becomes(std::nullopt));
}

TEST_F(RealXfconf, isUnknownWhileTheDaemonIsAway) {
    start();
    ASSERT_TRUE(becomes(false));
    stop();
    EXPECT_TRUE(becomes(std::nullopt));
    start();
    EXPECT_TRUE(becomes(false));
}

} // namespace

} // namespace zeph
