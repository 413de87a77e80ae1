// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/bus/PrivateBus.h"
#include "base/Coordinate.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QStringList>
#include <QVariantMap>

namespace zeph {

/// GeoClue on a bus: one client, whose requests it notes, and locations that the test names.
class FakeGeoClue : public QDBusVirtualObject {
public:
    explicit FakeGeoClue(QString address) : m_address(std::move(address)) {}

    void appear() {
        m_connection = std::make_unique<BusConnection>(m_address);
        ASSERT_TRUE(m_connection->bus().registerVirtualObject(QStringLiteral("/"), this,
                                                              QDBusConnection::SubPath));
        // The bus may still have to notice that an earlier one has gone.
        ASSERT_TRUE(eventually([&] {
            return m_connection->bus().registerService(QStringLiteral("org.freedesktop.GeoClue2"));
        }));
    }
    void vanish() { m_connection.reset(); }

    /// Leaves the name to another process and lives on.
    void releaseName() {
        m_connection->bus().unregisterService(QStringLiteral("org.freedesktop.GeoClue2"));
    }
    void forgetLocations() { m_locations.clear(); }

    /// Makes a location of these properties and tells the client of it.
    void locate(const QVariantMap &location) {
        const QString path = root() + QStringLiteral("/Location/%1").arg(m_locations.size());
        m_locations << location;
        QDBusMessage signal = QDBusMessage::createSignal(
            clientPath(), interface(QStringLiteral("Client")), QStringLiteral("LocationUpdated"));
        signal << QVariant::fromValue(QDBusObjectPath(QStringLiteral("/")))
               << QVariant::fromValue(QDBusObjectPath(path));
        m_connection->bus().send(signal);
    }
    void locate(Coordinate position) {
        locate({{QStringLiteral("Latitude"), position.latitude},
                {QStringLiteral("Longitude"), position.longitude},
                {QStringLiteral("Accuracy"), 5000.0},
                {QStringLiteral("Description"), QStringLiteral("GeoIP")}});
    }

    QString introspect(const QString &) const override { return {}; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override {
        const QString member = message.member();
        calls << member;
        if (mute.contains(member)) {
            m_unanswered = message;
            return true;
        }
        if (refused.contains(member)) {
            QDBusConnection(connection)
                .send(message.createErrorReply(
                    errorName, QStringLiteral("'com.tavi.Tavi' disallowed, no agent")));
            return true;
        }
        const QDBusMessage answer = answerTo(message);
        return !message.isReplyRequired() || QDBusConnection(connection).send(answer);
    }

    /// Answers the call that it was mute for.
    void answerLate() { m_connection->bus().send(m_unanswered.createReply()); }

    int count(const QString &member) const { return static_cast<int>(calls.count(member)); }

    QStringList calls;
    QStringList mute;    ///< calls that are not answered
    QStringList refused; ///< calls that are answered with `errorName`
    QString errorName = QStringLiteral("org.freedesktop.DBus.Error.AccessDenied");
    QVariantMap properties; ///< of the client, as they were set
    QVariantMap atStart;    ///< a location that is told before Start is answered

private:
    static QString root() { return QStringLiteral("/org/freedesktop/GeoClue2"); }
    static QString clientPath() { return root() + QStringLiteral("/Client/1"); }
    static QString interface(const QString &name) {
        return QStringLiteral("org.freedesktop.GeoClue2.") + name;
    }

    QDBusMessage answerTo(const QDBusMessage &message) {
        const QString member = message.member();
        const QVariantList arguments = message.arguments();
        if (member == QStringLiteral("GetClient")) {
            return message.createReply(QVariant::fromValue(QDBusObjectPath(clientPath())));
        }
        if (member == QStringLiteral("Set")) {
            properties[arguments.at(1).toString()] =
                arguments.at(2).value<QDBusVariant>().variant();
        } else if (member == QStringLiteral("Start") && !atStart.isEmpty()) {
            locate(atStart);
        } else if (member == QStringLiteral("GetAll")) {
            const auto index = message.path().section(u'/', -1).toInt();
            return message.createReply(QVariant(m_locations.value(index)));
        }
        return message.createReply();
    }

    QString m_address;
    std::unique_ptr<BusConnection> m_connection;
    QList<QVariantMap> m_locations;
    QDBusMessage m_unanswered;
};

} // namespace zeph
