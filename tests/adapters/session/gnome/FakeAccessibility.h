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
        if (message.member() == QStringLiteral("DeregisterEvent") &&
            message.signature() == QStringLiteral("s")) {
            events.removeAll(message.arguments().constFirst().toString());
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

/// A program of its own, of a name that the test gives it, that tells of its window and of cells
/// in it.
class TellingProgram {
public:
    TellingProgram(const QString &bus, const QString &name) {
        const QString path = m_folder.filePath(name + QStringLiteral(".py"));
        QFile script(path);
        EXPECT_TRUE(script.open(QIODevice::WriteOnly));
        script.write(R"py(import sys, threading, dbus, dbus.bus, dbus.lowlevel
from dbus.mainloop.glib import DBusGMainLoop
from gi.repository import GLib

bus = dbus.bus.BusConnection(sys.argv[1], mainloop=DBusGMainLoop())
loop = GLib.MainLoop()
asked = []

def answer(connection, message):
    if message.get_member() != "GetRole":
        return dbus.lowlevel.HANDLER_RESULT_NOT_YET_HANDLED
    asked.append(message.get_path())
    frame, cell = 23, 56
    reply = dbus.lowlevel.MethodReturnMessage(message)
    reply.append(frame if "window" in message.get_path() else cell, signature="u")
    connection.send_message(reply)
    return dbus.lowlevel.HANDLER_RESULT_HANDLED

def tell(word, end, path):
    signal = dbus.lowlevel.SignalMessage(path, "org.a11y.atspi.Event.Object", "StateChanged")
    if end == "new":
        signal.append("active", int(word), 0, dbus.Int32(0), {}, signature="siiva{sv}")
    else:
        signal.append("active", int(word), 0, dbus.Int32(0), ("a", dbus.ObjectPath("/b")),
                      signature="siiv(so)")
    bus.send_message(signal)
    bus.flush()

def listen():
    for line in sys.stdin:
        if line.strip() == "asked":
            GLib.idle_add(lambda: print(" ".join(["asked"] + asked), flush=True))
        else:
            GLib.idle_add(tell, *line.split())
    GLib.idle_add(loop.quit)

bus.add_message_filter(answer)
threading.Thread(target=listen, daemon=True).start()
print("here", flush=True)
loop.run()
)py");
        script.close();
        endWithThisProcess(m_process);
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QStringLiteral("/usr/bin/python3"), {path, bus});
        EXPECT_TRUE(m_process.waitForReadyRead(10'000)) << "the program did not start";
        m_process.readAll();
    }
    ~TellingProgram() { end(); }
    TellingProgram(const TellingProgram &) = delete;
    TellingProgram &operator=(const TellingProgram &) = delete;

    void tell(bool isActive, bool isOld = false) {
        tellOf(QStringLiteral("/window"), isActive, isOld);
    }

    /// Of one of its objects: those with "window" in their path are windows.
    void tellOf(const QString &path, bool isActive, bool isOld = false) {
        m_process.write(isActive ? "1 " : "0 ");
        m_process.write(isOld ? "old " : "new ");
        m_process.write(path.toUtf8() + '\n');
        m_process.waitForBytesWritten(10'000);
    }

    /// The paths whose roles were asked for so far, with a blank between two.
    QString asked() {
        m_process.write("asked\n");
        QByteArray answer;
        while (!answer.endsWith('\n') && m_process.waitForReadyRead(10'000)) {
            answer += m_process.readAll();
        }
        return QString::fromUtf8(answer).section(u' ', 1).trimmed();
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
