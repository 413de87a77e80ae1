// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusArgument>
#include <QDBusVariant>
#include <QList>
#include <QString>
#include <QVariantMap>

/// Lines of a menu as com.canonical.dbusmenu tells them.
namespace zeph::menuwire {

/// A line with those below it, as (ia{sv}av).
struct Layout {
    int id = 0;
    QVariantMap properties = {};
    QList<Layout> children = {};
};

/// What is known of a line, as (ia{sv}).
struct Line {
    int id = 0;
    QVariantMap properties = {};
};

/// What happened to a line, as (isvu).
struct Event {
    int id = 0;
    QString name = {};
    QDBusVariant data = {};
    uint time = 0;
};

/// Makes the types known to the bus library; to be called before any of them is sent.
void registerTypes();

QDBusArgument &operator<<(QDBusArgument &argument, const Layout &layout);
const QDBusArgument &operator>>(const QDBusArgument &argument, Layout &layout);
QDBusArgument &operator<<(QDBusArgument &argument, const Line &line);
const QDBusArgument &operator>>(const QDBusArgument &argument, Line &line);
QDBusArgument &operator<<(QDBusArgument &argument, const Event &event);
const QDBusArgument &operator>>(const QDBusArgument &argument, Event &event);

} // namespace zeph::menuwire
