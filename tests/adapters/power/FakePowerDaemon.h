// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/bus/PrivateBus.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>
#include <QVariantMap>

#include <map>

using FakeInterfaces = QMap<QString, QVariantMap>;
using FakeManagedObjects = QMap<QDBusObjectPath, FakeInterfaces>;
Q_DECLARE_METATYPE(FakeInterfaces)
Q_DECLARE_METATYPE(FakeManagedObjects)

namespace zeph {

/// UPower or BlueZ on a bus: objects with properties, and the signals that go with their changes.
class FakePowerDaemon : public QDBusVirtualObject {
public:
    FakePowerDaemon(QString address, QString name)
        : m_address(std::move(address)), m_name(std::move(name)) {
        qDBusRegisterMetaType<FakeInterfaces>();
        qDBusRegisterMetaType<FakeManagedObjects>();
    }

    void appear() {
        m_connection = std::make_unique<BusConnection>(m_address);
        ASSERT_TRUE(m_connection->bus().registerVirtualObject(QStringLiteral("/"), this,
                                                              QDBusConnection::SubPath));
        ASSERT_TRUE(m_connection->bus().registerService(m_name));
    }
    void vanish() { m_connection.reset(); }

    /// Ends and starts anew for everybody else, on the same connection and without waiting.
    void restart() {
        for (const QString &method :
             {QStringLiteral("ReleaseName"), QStringLiteral("RequestName")}) {
            QDBusMessage call = QDBusMessage::createMethodCall(
                QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/"),
                QStringLiteral("org.freedesktop.DBus"), method);
            call << m_name;
            if (method == QStringLiteral("RequestName")) {
                call << 0U;
            }
            m_connection->bus().send(call);
        }
    }

    void set(const QString &path, const QString &interface, const QVariantMap &values) {
        m_objects[path][interface].insert(values);
        signal(path, QStringLiteral("org.freedesktop.DBus.Properties"),
               QStringLiteral("PropertiesChanged"), {interface, values, QStringList()});
    }
    /// Changes a property and tells nobody.
    void store(const QString &path, const QString &interface, const QVariantMap &values) {
        m_objects[path][interface].insert(values);
    }
    /// Changes a property and tells its name alone.
    void setSilently(const QString &path, const QString &interface, const QString &name,
                     const QVariant &value) {
        m_objects[path][interface].insert(name, value);
        signal(path, QStringLiteral("org.freedesktop.DBus.Properties"),
               QStringLiteral("PropertiesChanged"), {interface, QVariantMap(), QStringList{name}});
    }
    void remove(const QString &path) { m_objects.erase(path); }

    void signal(const QString &path, const QString &interface, const QString &name,
                const QVariantList &arguments) {
        if (m_connection) {
            QDBusMessage message = QDBusMessage::createSignal(path, interface, name);
            message.setArguments(arguments);
            m_connection->bus().send(message);
        }
    }
    void interfacesAdded(const QString &path) {
        signal(QStringLiteral("/"), managerInterface(), QStringLiteral("InterfacesAdded"),
               {QVariant::fromValue(QDBusObjectPath(path)), QVariant::fromValue(interfaces(path))});
    }
    void interfacesRemoved(const QString &path, const QStringList &names) {
        signal(QStringLiteral("/"), managerInterface(), QStringLiteral("InterfacesRemoved"),
               {QVariant::fromValue(QDBusObjectPath(path)), names});
    }

    QString introspect(const QString &) const override { return {}; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override {
        ++questions;
        if (isMute) {
            return true;
        }
        QVariant answer;
        if (message.member() == QStringLiteral("GetAll")) {
            const auto object = m_objects.find(message.path());
            const QString interface = message.arguments().constFirst().toString();
            if (object == m_objects.end() || !object->second.contains(interface)) {
                return false;
            }
            answer = object->second.value(interface);
        } else if (message.member() == QStringLiteral("EnumerateDevices")) {
            QList<QDBusObjectPath> paths;
            for (const auto &[path, ignored] : m_objects) {
                if (path.contains(QStringLiteral("/devices/")) &&
                    !path.endsWith(QStringLiteral("/DisplayDevice"))) {
                    paths << QDBusObjectPath(path);
                }
            }
            answer = QVariant::fromValue(paths);
        } else if (message.member() == QStringLiteral("GetManagedObjects")) {
            FakeManagedObjects objects;
            for (const auto &[path, ignored] : m_objects) {
                objects[QDBusObjectPath(path)] = interfaces(path);
            }
            answer = QVariant::fromValue(objects);
        } else {
            return false;
        }
        return QDBusConnection(connection).send(message.createReply(answer));
    }

    int questions = 0;
    bool isMute = false;

private:
    static QString managerInterface() {
        return QStringLiteral("org.freedesktop.DBus.ObjectManager");
    }
    FakeInterfaces interfaces(const QString &path) const {
        const auto object = m_objects.find(path);
        return object == m_objects.end() ? FakeInterfaces() : object->second;
    }

    QString m_address;
    QString m_name;
    std::unique_ptr<BusConnection> m_connection;
    std::map<QString, FakeInterfaces> m_objects;
};

} // namespace zeph
