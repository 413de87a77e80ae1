// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/bus/PrivateBus.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>
#include <QVariantMap>

#include <map>

namespace zeph {

inline QString nmPath(const QString &rest) {
    return QStringLiteral("/org/freedesktop/NetworkManager") + rest;
}
inline QString nmInterface(const QString &rest) {
    return QStringLiteral("org.freedesktop.NetworkManager") + rest;
}

/// A network daemon on a bus, with as much of its properties as is asked for here.
class FakeNetworkManager : public QDBusVirtualObject {
public:
    explicit FakeNetworkManager(const QString &address) : m_address(address) {
        setPrimary(QStringLiteral("/"));
        setActive({});
    }

    void appear() {
        m_connection = std::make_unique<BusConnection>(m_address);
        ASSERT_TRUE(
            m_connection->bus().registerVirtualObject(nmPath({}), this, QDBusConnection::SubPath));
        ASSERT_TRUE(m_connection->bus().registerService(nmInterface({})));
    }
    void vanish() { m_connection.reset(); }

    void setPrimary(const QString &path) {
        set(nmPath({}), nmInterface({}), QStringLiteral("PrimaryConnection"),
            QVariant::fromValue(QDBusObjectPath(path)));
    }
    void setActive(const QStringList &paths) {
        QList<QDBusObjectPath> list;
        for (const QString &path : paths) {
            list << QDBusObjectPath(path);
        }
        set(nmPath({}), nmInterface({}), QStringLiteral("ActiveConnections"),
            QVariant::fromValue(list));
    }

    /// A connection that stands, joined to `accessPoint` ("/" for a wired one).
    void addConnection(const QString &path, const QString &type, const QString &accessPoint,
                       uint state = 2) {
        const QString interface = nmInterface(QStringLiteral(".Connection.Active"));
        set(path, interface, QStringLiteral("Type"), type);
        set(path, interface, QStringLiteral("State"), state);
        set(path, interface, QStringLiteral("SpecificObject"),
            QVariant::fromValue(QDBusObjectPath(accessPoint)));
    }
    void setSsid(const QString &accessPoint, const QByteArray &ssid) {
        set(accessPoint, nmInterface(QStringLiteral(".AccessPoint")), QStringLiteral("Ssid"), ssid);
    }

    /// Sets a property and, while the daemon is there, signals the change.
    void set(const QString &path, const QString &interface, const QString &name,
             const QVariant &value) {
        m_properties[path][interface].insert(name, value);
        if (m_connection) {
            QDBusMessage signal =
                QDBusMessage::createSignal(path, QStringLiteral("org.freedesktop.DBus.Properties"),
                                           QStringLiteral("PropertiesChanged"));
            signal << interface << QVariantMap{{name, value}} << QStringList();
            m_connection->bus().send(signal);
        }
    }

    QString introspect(const QString &) const override { return {}; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override {
        if (message.member() != QStringLiteral("GetAll")) {
            return false;
        }
        ++questions;
        if (isMute) {
            return true;
        }
        const auto object = m_properties.find(message.path());
        const QString interface = message.arguments().constFirst().toString();
        if (object == m_properties.end() || object->second.count(interface) == 0) {
            return false;
        }
        return QDBusConnection(connection)
            .send(message.createReply(QVariant(object->second.at(interface))));
    }

    int questions = 0;
    bool isMute = false;

private:
    QString m_address;
    std::unique_ptr<BusConnection> m_connection;
    std::map<QString, std::map<QString, QVariantMap>> m_properties;
};

} // namespace zeph
