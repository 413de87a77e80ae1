// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/tray/MenuWire.h"
#include "adapters/tray/TrayTools.h"

#include <QDBusMessage>
#include <QDBusVirtualObject>

namespace zeph {

/// A menu of one level on the bus, by com.canonical.dbusmenu, for desktops that draw it themselves.
/// It never changes. Its lines are numbered from 1 on; 0 is the menu itself.
class MenuObject : public QDBusVirtualObject {
public:
    MenuObject(std::vector<MenuItem> menu, TrayKeyNames keyNames);

    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    QDBusMessage answerTo(const QDBusMessage &message) const;
    QDBusMessage layout(const QDBusMessage &message) const;
    QDBusMessage groupProperties(const QDBusMessage &message) const;
    QDBusMessage property(const QDBusMessage &message) const;
    std::optional<QVariantMap> propertiesOf(int id, const QStringList &names) const;
    std::vector<menuwire::Event> eventsIn(const QDBusMessage &message) const;
    bool isLine(int id) const;

    std::vector<MenuItem> m_menu;
    TrayKeyNames m_keyNames;
};

} // namespace zeph
