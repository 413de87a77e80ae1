// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

#include <functional>

namespace zeph {

/// Follows the PropertiesChanged signals of one interface of one service; its end unsubscribes.
class PropertyWatch : public QObject {
    Q_OBJECT

public:
    /// What changed: the new values by name, and the names of those that came without a value.
    using Handler = std::function<void(const QVariantMap &changed, const QStringList &invalidated)>;

    /// An empty `path` follows every object of `service`. `handler` runs on this thread.
    PropertyWatch(QDBusConnection bus, QString service, QString path, QString interface,
                  Handler handler);
    ~PropertyWatch() override;

private:
    Q_SLOT void propertiesChanged(const QString &interface, const QVariantMap &changed,
                                  const QStringList &invalidated);

    QDBusConnection m_bus;
    QString m_service;
    QString m_path;
    QString m_interface;
    Handler m_handler;
};

} // namespace zeph
