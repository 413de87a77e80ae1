// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/bus/PrivateBus.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVirtualObject>
#include <QPoint>

#include <optional>

namespace zeph {

/// One of the monitors by its connector; the other words are never empty.
struct ToldMonitor {
    QString connector;
};

/// A part of the desktop as GNOME tells it.
struct ToldPart {
    QPoint place;
    double scale = 1;
    QList<ToldMonitor> monitors;
};

inline QDBusArgument &operator<<(QDBusArgument &argument, const ToldMonitor &monitor) {
    const QString unknown = QStringLiteral("unknown");
    argument.beginStructure();
    argument << monitor.connector << unknown << unknown << unknown;
    argument.endStructure();
    return argument;
}
inline const QDBusArgument &operator>>(const QDBusArgument &argument, ToldMonitor & /*monitor*/) {
    return argument;
}

inline QDBusArgument &operator<<(QDBusArgument &argument, const ToldPart &part) {
    argument.beginStructure();
    argument << part.place.x() << part.place.y() << part.scale << uint(0) << false << part.monitors
             << QVariantMap();
    argument.endStructure();
    return argument;
}
inline const QDBusArgument &operator>>(const QDBusArgument &argument, ToldPart & /*part*/) {
    return argument;
}

/// A mode of a monitor, of which a test wants the form alone.
struct ToldMode {};

inline QDBusArgument &operator<<(QDBusArgument &argument, const ToldMode & /*mode*/) {
    argument.beginStructure();
    argument << QStringLiteral("1280x800@60") << 1280 << 800 << 60.0 << 1.0 << QList<double>{1, 2}
             << QVariantMap{{QStringLiteral("is-current"), true}};
    argument.endStructure();
    return argument;
}
inline const QDBusArgument &operator>>(const QDBusArgument &argument, ToldMode & /*mode*/) {
    return argument;
}

/// A monitor with its modes.
struct ToldModes {
    ToldMonitor monitor;
};

inline QDBusArgument &operator<<(QDBusArgument &argument, const ToldModes &modes) {
    argument.beginStructure();
    argument << modes.monitor << QList<ToldMode>{{}}
             << QVariantMap{{QStringLiteral("display-name"), QStringLiteral("Unknown Display")}};
    argument.endStructure();
    return argument;
}
inline const QDBusArgument &operator>>(const QDBusArgument &argument, ToldModes & /*modes*/) {
    return argument;
}

} // namespace zeph

Q_DECLARE_METATYPE(zeph::ToldMonitor)
Q_DECLARE_METATYPE(zeph::ToldPart)
Q_DECLARE_METATYPE(zeph::ToldMode)
Q_DECLARE_METATYPE(zeph::ToldModes)

namespace zeph {

/// What GNOME's compositor tells of its monitors, as the test says.
class FakeDisplayConfig : public QDBusVirtualObject {
public:
    explicit FakeDisplayConfig(QString address) : m_address(std::move(address)) {
        qDBusRegisterMetaType<ToldMonitor>();
        qDBusRegisterMetaType<QList<ToldMonitor>>();
        qDBusRegisterMetaType<ToldPart>();
        qDBusRegisterMetaType<QList<ToldPart>>();
        qDBusRegisterMetaType<ToldMode>();
        qDBusRegisterMetaType<QList<ToldMode>>();
        qDBusRegisterMetaType<ToldModes>();
        qDBusRegisterMetaType<QList<ToldModes>>();
    }

    void appear() {
        m_connection = std::make_unique<BusConnection>(m_address);
        ASSERT_TRUE(m_connection->bus().registerVirtualObject(path(), this));
        ASSERT_TRUE(eventually([&] { return m_connection->bus().registerService(name()); }));
    }
    void vanish() { m_connection.reset(); }

    void tellOfChange() {
        m_connection->bus().send(
            QDBusMessage::createSignal(path(), name(), QStringLiteral("MonitorsChanged")));
    }

    QString introspect(const QString & /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection & /*bus*/) override {
        if (message.member() != QStringLiteral("GetCurrentState") ||
            !message.signature().isEmpty()) {
            return false;
        }
        ++questions;
        if (refuses) {
            return m_connection->bus().send(
                message.createErrorReply(QDBusError::AccessDenied, QStringLiteral("no")));
        }
        return m_connection->bus().send(message.createReply(oddAnswer.value_or(state())));
    }

    QList<ToldPart> parts;
    QVariantMap properties{{QStringLiteral("layout-mode"), 2U},
                           {QStringLiteral("legacy-ui-scaling-factor"), 2}};
    std::optional<QVariantList> oddAnswer; ///< in place of the state
    bool refuses = false;
    int questions = 0;

private:
    static QString name() { return QStringLiteral("org.gnome.Mutter.DisplayConfig"); }
    static QString path() { return QStringLiteral("/org/gnome/Mutter/DisplayConfig"); }

    QVariantList state() const {
        QList<ToldModes> modes;
        for (const ToldPart &part : parts) {
            for (const ToldMonitor &monitor : part.monitors) {
                modes.append({monitor});
            }
        }
        return {4U, QVariant::fromValue(modes), QVariant::fromValue(parts), properties};
    }

    QString m_address;
    std::unique_ptr<BusConnection> m_connection;
};

} // namespace zeph
