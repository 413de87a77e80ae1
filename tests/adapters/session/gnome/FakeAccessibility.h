// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/bus/PrivateBus.h"

#include <QDBusMessage>
#include <QDBusVirtualObject>

namespace zeph {

/// The launcher of the accessibility bus on the session bus, that bus, and its registry.
class FakeAccessibility : public QDBusVirtualObject {
public:
    explicit FakeAccessibility(QString sessionBus) : m_sessionBus(std::move(sessionBus)) {}

    void appear() {
        m_launcher = std::make_unique<BusConnection>(m_sessionBus);
        offer(*m_launcher, QStringLiteral("org.a11y.Bus"));
        m_registry = std::make_unique<BusConnection>(m_bus.address());
        offer(*m_registry, QStringLiteral("org.a11y.atspi.Registry"));
    }
    void vanish() {
        m_registry.reset();
        m_launcher.reset();
    }

    QString address() const { return m_bus.address(); }

    QString introspect(const QString & /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &bus) override {
        calls.append(message.member());
        if (message.member() == QStringLiteral("GetAddress")) {
            return QDBusConnection(bus).send(message.createReply(m_bus.address()));
        }
        if (message.member() == QStringLiteral("RegisterEvent") &&
            message.signature() == QStringLiteral("sass")) {
            events.append(message.arguments().constFirst().toString());
            return true;
        }
        return false;
    }

    QStringList calls;
    QStringList events; ///< that somebody listens to

private:
    void offer(BusConnection &connection, const QString &name) {
        ASSERT_TRUE(connection.bus().registerVirtualObject(QStringLiteral("/"), this,
                                                           QDBusConnection::SubPath));
        ASSERT_TRUE(eventually([&] { return connection.bus().registerService(name); }));
    }

    QString m_sessionBus;
    PrivateBus m_bus;
    std::unique_ptr<BusConnection> m_launcher;
    std::unique_ptr<BusConnection> m_registry;
};

/// A program of its own, of a name that the test gives it, that tells of its window.
class TellingProgram {
public:
    TellingProgram(const QString &bus, const QString &name) {
        const QString path = m_folder.filePath(name + QStringLiteral(".py"));
        QFile script(path);
        EXPECT_TRUE(script.open(QIODevice::WriteOnly));
        script.write(R"py(import sys, dbus, dbus.bus, dbus.lowlevel
bus = dbus.bus.BusConnection(sys.argv[1])
print("here", flush=True)
for line in sys.stdin:
    signal = dbus.lowlevel.SignalMessage("/window", "org.a11y.atspi.Event.Object", "StateChanged")
    word, end = line.split()
    if end == "new":
        signal.append("active", int(word), 0, dbus.Int32(0), {}, signature="siiva{sv}")
    else:
        signal.append("active", int(word), 0, dbus.Int32(0), ("a", dbus.ObjectPath("/b")),
                      signature="siiv(so)")
    bus.send_message(signal)
    bus.flush()
)py");
        script.close();
        endWithThisProcess(m_process);
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QStringLiteral("/usr/bin/python3"), {path, bus});
        EXPECT_TRUE(m_process.waitForReadyRead(10'000)) << "the program did not start";
    }
    ~TellingProgram() { end(); }
    TellingProgram(const TellingProgram &) = delete;
    TellingProgram &operator=(const TellingProgram &) = delete;

    void tell(bool isActive, bool isOld = false) {
        m_process.write(isActive ? "1 " : "0 ");
        m_process.write(isOld ? "old\n" : "new\n");
        m_process.waitForBytesWritten(10'000);
    }

    void end() {
        m_process.closeWriteChannel();
        m_process.waitForFinished(10'000);
    }

private:
    QTemporaryDir m_folder;
    QProcess m_process;
};

} // namespace zeph
