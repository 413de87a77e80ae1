// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/bus/PrivateBus.h"
#include "adapters/tray/BusProperties.h"
#include "adapters/tray/TrayTools.h"
#include "support/QtPrinters.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QDBusVirtualObject>

#include <gmock/gmock.h>

namespace zeph {

/// The desktop's side of a tray on the bus: the watcher, which is told of items, and a host that
/// asks them.
class FakeTrayHost {
public:
    explicit FakeTrayHost(const QString &address) : m_connection(address) {
        m_connection.bus().registerVirtualObject(QStringLiteral("/StatusNotifierWatcher"),
                                                 &m_object);
    }

    /// Takes the name by which items look for a watcher.
    void appear(bool hasHost = true) {
        m_object.hasHost = hasHost;
        ASSERT_TRUE(m_connection.bus().registerService(name()));
    }

    void disappear() { ASSERT_TRUE(m_connection.bus().unregisterService(name())); }

    /// A host comes to the watcher, or leaves it.
    void setHost(bool hasHost) {
        m_object.hasHost = hasHost;
        m_connection.bus().send(
            QDBusMessage::createSignal(QStringLiteral("/StatusNotifierWatcher"), name(),
                                       hasHost ? QStringLiteral("StatusNotifierHostRegistered")
                                               : QStringLiteral("StatusNotifierHostUnregistered")));
    }

    void refuseProperties() { m_object.refusesProperties = true; }

    /// What items registered with, in order.
    const QStringList &registered() const { return m_object.registered; }

    /// The answer of an item that has registered; an error where it refuses.
    QDBusMessage ask(const QString &path, const QString &interface, const QString &method,
                     const QVariantList &arguments) {
        QDBusMessage message =
            QDBusMessage::createMethodCall(registered().constLast(), path, interface, method);
        message.setArguments(arguments);
        // This thread serves the call as well, so it must not wait for it.
        QDBusPendingCallWatcher watcher(m_connection.bus().asyncCall(message, 10'000));
        EXPECT_TRUE(eventually([&] { return watcher.isFinished(); }));
        return watcher.reply();
    }

    /// All properties of an object of the item.
    QVariantMap properties(const QString &path, const QString &interface) {
        const QDBusMessage answer = ask(path, QStringLiteral("org.freedesktop.DBus.Properties"),
                                        QStringLiteral("GetAll"), {interface});
        EXPECT_EQ(answer.type(), QDBusMessage::ReplyMessage);
        return qdbus_cast<QVariantMap>(answer.arguments().value(0));
    }

private:
    static QString name() { return QStringLiteral("org.kde.StatusNotifierWatcher"); }

    class Watcher : public QDBusVirtualObject {
    public:
        QString introspect(const QString &) const override { return {}; }
        bool handleMessage(const QDBusMessage &message,
                           const QDBusConnection &connection) override {
            if (message.member() == QStringLiteral("RegisterStatusNotifierItem")) {
                registered.append(message.arguments().constFirst().toString());
                return QDBusConnection(connection).send(message.createReply());
            }
            const auto answer = answerOnProperties(message, name(), [this] {
                return QVariantMap{{QStringLiteral("IsStatusNotifierHostRegistered"), hasHost}};
            });
            return answer && !refusesProperties && QDBusConnection(connection).send(*answer);
        }

        QStringList registered;
        bool hasHost = true;
        bool refusesProperties = false;
    };

    Watcher m_object;
    BusConnection m_connection;
};

/// An item of the program's kind, whose symbol is a filled square.
struct TrayExample {
    TrayFacts facts{.symbol = QStringLiteral("some.symbol"),
                    .description = QStringLiteral("Tavi"),
                    .menu = {{.text = QStringLiteral("Tavi")},
                             {},
                             {.text = QStringLiteral("Settings & Permissions…"),
                              .key = QStringLiteral(","),
                              .action = [this] { chosen.append(QStringLiteral("settings")); }},
                             {.text = QStringLiteral("snake_case"),
                              .action = [this] { chosen.append(QStringLiteral("snake")); }}}};
    TrayTools tools{.drawSymbol =
                        [this](const QString &symbol, int pixels) {
                            drawn.append(symbol);
                            QImage mask(pixels, pixels, QImage::Format_Alpha8);
                            mask.fill(Qt::black);
                            return mask;
                        },
                    .popUpMenu =
                        [this](const std::vector<MenuItem> &menu, QPoint position) {
                            EXPECT_EQ(menu.size(), facts.menu.size());
                            opened.append(position);
                        }};
    QStringList chosen;
    QStringList drawn;
    QList<QPoint> opened; ///< where our own menu was
};

} // namespace zeph
