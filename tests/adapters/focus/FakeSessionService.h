// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/bus/PrivateBus.h"

#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>

#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace zeph {

/// A service that answers every question with one value, or with an error, at once or later.
class FakeSessionService : public QDBusVirtualObject {
public:
    FakeSessionService(QString address, QString name)
        : m_address(std::move(address)), m_name(std::move(name)) {}

    void appear() {
        m_connection = std::make_unique<BusConnection>(m_address);
        ASSERT_TRUE(m_connection->bus().registerVirtualObject(QStringLiteral("/"), this,
                                                              QDBusConnection::SubPath));
        ASSERT_TRUE(m_connection->bus().registerService(m_name));
    }
    void vanish() {
        m_late.clear();
        m_connection.reset();
    }

    /// Ends and starts anew for everybody else, on the same connection and without waiting.
    void restart() {
        callBus(QStringLiteral("ReleaseName"), {m_name});
        callBus(QStringLiteral("RequestName"), {m_name, 0U});
    }

    void signal(const QString &path, const QString &interface, const QString &name,
                const QVariantList &arguments) {
        QDBusMessage message = QDBusMessage::createSignal(path, interface, name);
        message.setArguments(arguments);
        m_connection->bus().send(message);
    }

    /// Answers what was asked while it was mute.
    void answerLate() {
        for (const QDBusMessage &question : std::exchange(m_late, {})) {
            send(question);
        }
    }

    QString introspect(const QString &) const override { return {}; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &) override {
        ++questions;
        lastQuestion = message;
        if (isMute) {
            m_late.push_back(message);
        } else {
            send(message);
        }
        return true;
    }

    std::optional<QVariant> value; ///< what is answered; the error while it is absent
    QString error = QStringLiteral("org.freedesktop.DBus.Error.InvalidArgs");
    QDBusMessage lastQuestion;
    int questions = 0;
    bool isMute = false;

private:
    void send(const QDBusMessage &question) {
        const QDBusMessage answer =
            value ? question.createReply(QVariant::fromValue(QDBusVariant(*value)))
                  : question.createErrorReply(error, QStringLiteral("no such thing"));
        m_connection->bus().send(answer);
    }
    void callBus(const QString &method, const QVariantList &arguments) {
        QDBusMessage call = QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/"),
            QStringLiteral("org.freedesktop.DBus"), method);
        call.setArguments(arguments);
        m_connection->bus().send(call);
    }

    QString m_address;
    QString m_name;
    std::unique_ptr<BusConnection> m_connection;
    std::vector<QDBusMessage> m_late;
};

} // namespace zeph
