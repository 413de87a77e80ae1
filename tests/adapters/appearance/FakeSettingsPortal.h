// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/bus/PrivateBus.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QVariantMap>

#include <utility>

namespace zeph {

/// The settings of the desktop's portal on a bus.
class FakeSettingsPortal : public QDBusVirtualObject {
public:
    using Groups = QMap<QString, QVariantMap>;

    explicit FakeSettingsPortal(QString address) : m_address(std::move(address)) {
        qDBusRegisterMetaType<Groups>();
    }

    void appear() {
        m_connection = std::make_unique<BusConnection>(m_address);
        ASSERT_TRUE(m_connection->bus().registerVirtualObject(QStringLiteral("/"), this,
                                                              QDBusConnection::SubPath));
        ASSERT_TRUE(
            m_connection->bus().registerService(QStringLiteral("org.freedesktop.portal.Desktop")));
    }
    void vanish() { m_connection.reset(); }

    /// Sets a value and tells of it.
    void change(const QString &group, const QString &key, const QVariant &value) {
        groups[group][key] = value;
        QDBusMessage signal = QDBusMessage::createSignal(
            QStringLiteral("/org/freedesktop/portal/desktop"),
            QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("SettingChanged"));
        signal << group << key << QVariant::fromValue(QDBusVariant(value));
        m_connection->bus().send(signal);
    }

    /// Answers what it was asked while it was mute.
    void answerLate() {
        isMute = false;
        m_connection->bus().send(answerTo(std::exchange(m_late, {})));
    }

    QString introspect(const QString &) const override { return {}; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &) override {
        ++questions;
        asked = message.arguments().value(0).toStringList();
        if (isMute) {
            m_late = message;
            return true;
        }
        return m_connection->bus().send(answerTo(message));
    }

    Groups groups;
    int questions = 0;
    QStringList asked; ///< the groups of the last question
    bool isMute = false;
    bool knowsSettings = true;

private:
    QDBusMessage answerTo(const QDBusMessage &question) const {
        return knowsSettings
                   ? question.createReply(QVariant::fromValue(groups))
                   : question.createErrorReply(QDBusError::UnknownInterface, QStringLiteral("no"));
    }

    QString m_address;
    std::unique_ptr<BusConnection> m_connection;
    QDBusMessage m_late;
};

} // namespace zeph
