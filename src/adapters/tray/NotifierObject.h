// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/tray/TrayTools.h"

#include <QDBusVirtualObject>
#include <QVariantMap>

namespace zeph {

/// An item of the tray on the bus, by org.kde.StatusNotifierItem. It never changes.
class NotifierObject : public QDBusVirtualObject {
public:
    /// Both outlive this.
    NotifierObject(const TrayFacts &facts, const TrayTools &tools);

    /// Where its menu is to be found on the bus.
    static QString menuPath();

    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    QVariantMap properties() const;

    const TrayFacts &m_facts;
    const TrayTools &m_tools;
};

} // namespace zeph
