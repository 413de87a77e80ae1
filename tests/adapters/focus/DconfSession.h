// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/bus/PrivateBus.h"
#include "support/Environment.h"

#include <QDBusConnectionInterface>
#include <QDir>

#include <gio/gio.h>

namespace zeph {

/// A session with dconf in a temporary home, and schemas of the test's own beside the installed
/// ones. The settings library looks at the environment once a process.
class DconfSession {
public:
    DconfSession() {
        writeSchemas();
        m_service.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        endWithThisProcess(m_service);
        m_service.start(QStringLiteral("/usr/libexec/dconf-service"), {});
        EXPECT_TRUE(m_service.waitForStarted(10'000)) << "dconf-service is not installed";
        EXPECT_TRUE(eventually([&] {
            return m_client.bus().interface()->isServiceRegistered(
                QStringLiteral("ca.desrt.dconf"));
        }));
    }
    ~DconfSession() {
        // The library would end the process with the bus, should nobody have told it otherwise.
        g_dbus_connection_set_exit_on_close(sharedConnection(), FALSE);
        m_service.kill();
        m_service.waitForFinished(10'000);
    }
    DconfSession(const DconfSession &) = delete;
    DconfSession &operator=(const DconfSession &) = delete;

    void set(const QString &schema, const QString &key, bool value) {
        run({QStringLiteral("set"), schema, key, QVariant(value).toString()});
    }
    void reset(const QString &schema, const QString &key) {
        run({QStringLiteral("reset"), schema, key});
    }
    void stopBus() { m_bus.stop(); }

    /// The settings library's own connection to the bus, which is made when there is none yet.
    static GDBusConnection *sharedConnection() {
        static GDBusConnection *const connection =
            g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
        return connection;
    }

private:
    QByteArray folder(const char *name) const {
        QDir(m_home.path()).mkpath(QString::fromLatin1(name));
        return QFile::encodeName(m_home.filePath(QString::fromLatin1(name)));
    }

    void writeSchemas() const {
        QFile file(QString::fromUtf8(folder("schemas")) + QStringLiteral("/test.gschema.xml"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(R"(<schemalist>
            <schema id="org.mate.NotificationDaemon" path="/org/mate/notification-daemon/">
                <key name="do-not-disturb" type="b"><default>false</default></key>
            </schema>
            <schema id="com.tavi.Test" path="/com/tavi/test/">
                <key name="text" type="s"><default>'true'</default></key>
            </schema>
            <schema id="com.tavi.Test.Placeless">
                <key name="quiet" type="b"><default>false</default></key>
            </schema>
            </schemalist>)");
        file.close();
        QProcess compiler;
        compiler.start(QStringLiteral("glib-compile-schemas"),
                       {QString::fromUtf8(folder("schemas"))});
        EXPECT_TRUE(compiler.waitForFinished(20'000) && compiler.exitCode() == 0);
    }

    /// Has the settings' own tool write, as another program would.
    static void run(const QStringList &arguments) {
        QProcess tool;
        tool.setProcessChannelMode(QProcess::ForwardedChannels);
        tool.start(QStringLiteral("gsettings"), arguments);
        EXPECT_TRUE(tool.waitForFinished(20'000) && tool.exitCode() == 0)
            << arguments.join(u' ').toStdString();
    }

    QTemporaryDir m_home;
    PrivateBus m_bus;
    ScopedVariable m_address{"DBUS_SESSION_BUS_ADDRESS", m_bus.address().toUtf8()};
    ScopedVariable m_homeFolder{"HOME", folder("home")};
    ScopedVariable m_config{"XDG_CONFIG_HOME", folder("config")};
    ScopedVariable m_runtime{"XDG_RUNTIME_DIR", folder("run")};
    ScopedVariable m_schemas{"GSETTINGS_SCHEMA_DIR", folder("schemas")};
    ScopedVariable m_backend{"GSETTINGS_BACKEND", std::nullopt};
    BusConnection m_client{m_bus.address()};
    QProcess m_service;
};

} // namespace zeph
