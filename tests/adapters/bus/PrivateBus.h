// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDeadlineTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/prctl.h>

#include <csignal>
#include <memory>

namespace zeph {

/// Turns the event loop until `condition` holds; false when it never does.
template <typename Condition>
bool eventually(Condition condition, int milliseconds = 15'000) {
    const QDeadlineTimer deadline(milliseconds);
    // Asked once a round: a picture that is looked at may be written anew the moment after.
    while (!condition()) {
        if (deadline.hasExpired()) {
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 20);
    }
    return true;
}

/// Has the system end `process` with this one, so that a test that crashes leaves nothing behind.
inline void endWithThisProcess(QProcess &process) {
    process.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
}

/// A message bus of the test's own, in a temporary folder. Nothing can be activated on it.
class PrivateBus {
public:
    PrivateBus() {
        QFile configuration(m_folder.filePath(QStringLiteral("bus.conf")));
        EXPECT_TRUE(configuration.open(QIODevice::WriteOnly));
        configuration.write("<busconfig><type>custom</type>"
                            "<listen>unix:path=" +
                            socketPath().toUtf8() +
                            "</listen><auth>EXTERNAL</auth><policy context=\"default\">"
                            "<allow send_destination=\"*\"/><allow receive_sender=\"*\"/>"
                            "<allow send_type=\"method_return\"/><allow send_type=\"error\"/>"
                            "<allow send_type=\"signal\"/>"
                            "<allow own=\"*\"/></policy></busconfig>");
        configuration.close();
        endWithThisProcess(m_daemon);
        m_daemon.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_daemon.start(QStringLiteral("dbus-daemon"),
                       {QStringLiteral("--nofork"), QStringLiteral("--nopidfile"),
                        QStringLiteral("--print-address=1"), QStringLiteral("--config-file"),
                        configuration.fileName()});
        // The address is printed once the bus listens.
        EXPECT_TRUE(m_daemon.waitForReadyRead(10'000)) << "dbus-daemon did not start";
    }
    ~PrivateBus() { stop(); }
    PrivateBus(const PrivateBus &) = delete;
    PrivateBus &operator=(const PrivateBus &) = delete;

    QString address() const { return QStringLiteral("unix:path=") + socketPath(); }

    /// Ends the bus, as a crash of it would.
    void stop() {
        if (m_daemon.state() != QProcess::NotRunning) {
            m_daemon.kill();
            m_daemon.waitForFinished(10'000);
        }
    }

    /// Has the bus hang: it takes connections and messages and does nothing about them.
    void freeze() { ::kill(static_cast<pid_t>(m_daemon.processId()), SIGSTOP); }
    void thaw() { ::kill(static_cast<pid_t>(m_daemon.processId()), SIGCONT); }

private:
    QString socketPath() const { return m_folder.filePath(QStringLiteral("bus")); }

    QTemporaryDir m_folder;
    QProcess m_daemon;
};

/// A connection to a bus that no one else in the process shares.
class BusConnection {
public:
    explicit BusConnection(const QString &address) : m_name(nextName()) {
        m_bus = std::make_unique<QDBusConnection>(QDBusConnection::connectToBus(address, m_name));
    }
    ~BusConnection() { close(); }
    BusConnection(const BusConnection &) = delete;
    BusConnection &operator=(const BusConnection &) = delete;

    QDBusConnection &bus() { return *m_bus; }

    /// Leaves the bus with every name and object, as a process that ends does.
    void close() {
        if (m_bus) {
            // The bus library counts who uses a connection, but its thread takes a new share for a
            // call that just came in even when the last one has been given back, and then frees the
            // connection twice. Without objects no call is handed on.
            m_bus->unregisterObject(QStringLiteral("/"), QDBusConnection::UnregisterTree);
            m_bus.reset();
            QDBusConnection::disconnectFromBus(m_name);
        }
    }

private:
    static QString nextName() {
        static int count = 0;
        return QStringLiteral("test-%1").arg(++count);
    }

    QString m_name;
    std::unique_ptr<QDBusConnection> m_bus;
};

} // namespace zeph
