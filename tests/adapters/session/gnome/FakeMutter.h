// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/bus/PrivateBus.h"

#include <QDBusMessage>
#include <QDBusVirtualObject>

#include <map>

namespace zeph {

/// The idle monitor of GNOME's shell, whose time the test tells.
class FakeMutter : public QDBusVirtualObject {
public:
    explicit FakeMutter(QString address) : m_address(std::move(address)) {}

    void appear() {
        m_connection = std::make_unique<BusConnection>(m_address);
        ASSERT_TRUE(m_connection->bus().registerVirtualObject(path(), this));
        ASSERT_TRUE(eventually([&] { return m_connection->bus().registerService(name()); }));
    }
    void vanish() {
        m_connection.reset();
        idleWatches.clear();
        activeWatches.clear();
    }

    /// As it tells that the time of a watch is reached, or that there was input.
    void fire(quint32 number) {
        QDBusMessage signal =
            QDBusMessage::createSignal(path(), name(), QStringLiteral("WatchFired"));
        signal << number;
        m_connection->bus().send(signal);
        activeWatches.removeAll(number);
    }

    QString introspect(const QString & /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection & /*bus*/) override {
        const QString member = message.member();
        if (member == QStringLiteral("RemoveWatch") && message.signature() == QStringLiteral("u")) {
            const quint32 number = message.arguments().constFirst().toUInt();
            idleWatches.erase(number);
            activeWatches.removeAll(number);
            return m_connection->bus().send(message.createReply());
        }
        if (refuses) {
            ++refusals;
            return m_connection->bus().send(
                message.createErrorReply(QDBusError::AccessDenied, QStringLiteral("no")));
        }
        if (member == QStringLiteral("AddIdleWatch") &&
            message.signature() == QStringLiteral("t")) {
            ++idleWatchesAdded;
            idleWatches[++m_last] = message.arguments().constFirst().toULongLong();
            return m_connection->bus().send(message.createReply(m_last));
        }
        if (member == QStringLiteral("AddUserActiveWatch") && message.signature().isEmpty()) {
            ++activeWatchesAdded;
            activeWatches.append(++m_last);
            if (firesEarly) {
                fire(m_last);
            }
            return m_connection->bus().send(message.createReply(m_last));
        }
        return false;
    }

    std::map<quint32, quint64> idleWatches; ///< milliseconds by number
    QList<quint32> activeWatches;
    int idleWatchesAdded = 0;
    int activeWatchesAdded = 0;
    int refusals = 0;
    bool refuses = false;
    bool firesEarly = false; ///< before it tells the number

private:
    static QString name() { return QStringLiteral("org.gnome.Mutter.IdleMonitor"); }
    static QString path() { return QStringLiteral("/org/gnome/Mutter/IdleMonitor/Core"); }

    QString m_address;
    std::unique_ptr<BusConnection> m_connection;
    quint32 m_last = 40;
};

} // namespace zeph
