// SPDX-License-Identifier: MIT
#include "adapters/tray/MenuWire.h"

#include <QDBusMetaType>

namespace zeph::menuwire {

void registerTypes() {
    qDBusRegisterMetaType<Layout>();
    qDBusRegisterMetaType<Line>();
    qDBusRegisterMetaType<QList<Line>>();
    qDBusRegisterMetaType<Event>();
    qDBusRegisterMetaType<QList<Event>>();
    qDBusRegisterMetaType<QList<QStringList>>(); // a shortcut
}

QDBusArgument &operator<<(QDBusArgument &argument, const Layout &layout) {
    argument.beginStructure();
    argument << layout.id << layout.properties;
    argument.beginArray(QMetaType::fromType<QDBusVariant>());
    for (const Layout &child : layout.children) {
        argument << QDBusVariant(QVariant::fromValue(child));
    }
    argument.endArray();
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, Layout &layout) {
    argument.beginStructure();
    argument >> layout.id >> layout.properties;
    argument.beginArray();
    while (!argument.atEnd()) {
        QDBusVariant child;
        argument >> child;
        layout.children.append(qdbus_cast<Layout>(child.variant()));
    }
    argument.endArray();
    argument.endStructure();
    return argument;
}

QDBusArgument &operator<<(QDBusArgument &argument, const Line &line) {
    argument.beginStructure();
    argument << line.id << line.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, Line &line) {
    argument.beginStructure();
    argument >> line.id >> line.properties;
    argument.endStructure();
    return argument;
}

QDBusArgument &operator<<(QDBusArgument &argument, const Event &event) {
    argument.beginStructure();
    argument << event.id << event.name << event.data << event.time;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, Event &event) {
    argument.beginStructure();
    argument >> event.id >> event.name >> event.data >> event.time;
    argument.endStructure();
    return argument;
}

} // namespace zeph::menuwire
