// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/bus/PrivateBus.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>
#include <QVariantMap>

#include <vector>

namespace zeph {

/// The desktop's portal on a bus, as far as a program in a sandbox asks it to start with the
/// session.
class FakePortal : public QDBusVirtualObject {
public:
    explicit FakePortal(QString address) : m_address(std::move(address)) {}

    void appear() {
        m_connection = std::make_unique<BusConnection>(m_address);
        ASSERT_TRUE(m_connection->bus().registerVirtualObject(QStringLiteral("/"), this,
                                                              QDBusConnection::SubPath));
        ASSERT_TRUE(
            m_connection->bus().registerService(QStringLiteral("org.freedesktop.portal.Desktop")));
    }
    void vanish() { m_connection.reset(); }

    /// Answers the question of that number.
    void respond(std::size_t question, uint response, const QVariantMap &results) {
        QDBusMessage signal = QDBusMessage::createSignal(
            handles.at(question), QStringLiteral("org.freedesktop.portal.Request"),
            QStringLiteral("Response"));
        signal << response << results;
        m_connection->bus().send(signal);
    }

    QString introspect(const QString &) const override { return {}; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override {
        if (message.member() != QStringLiteral("RequestBackground")) {
            return false;
        }
        options.push_back(qdbus_cast<QVariantMap>(message.arguments().at(1)));
        const QString caller = message.service().mid(1).replace(u'.', u'_');
        handles.push_back(
            keepsOldHandles
                ? QStringLiteral("/org/freedesktop/portal/desktop/request/old")
                : QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2")
                      .arg(caller,
                           options.back().value(QStringLiteral("handle_token")).toString()));
        if (isEager) {
            respond(handles.size() - 1, 0, {{QStringLiteral("autostart"), true}});
        }
        const QDBusMessage answer =
            refuses ? message.createErrorReply(QDBusError::NotSupported, QStringLiteral("no"))
                    : message.createReply(QVariant::fromValue(QDBusObjectPath(handles.back())));
        return QDBusConnection(connection).send(answer);
    }

    std::vector<QVariantMap> options; ///< one a question
    std::vector<QString> handles;
    bool keepsOldHandles = false; ///< as portals before 0.9
    bool isEager = false;         ///< responds before it answers the call
    bool refuses = false;         ///< to be asked

private:
    QString m_address;
    std::unique_ptr<BusConnection> m_connection;
};

} // namespace zeph
