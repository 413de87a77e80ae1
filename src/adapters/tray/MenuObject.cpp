// SPDX-License-Identifier: MIT
#include "adapters/tray/MenuObject.h"

#include "adapters/tray/BusProperties.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QGuiApplication>

#include <algorithm>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

const QString menuInterface = u"com.canonical.dbusmenu"_s;
constexpr uint menuVersion = 3;
constexpr uint menuRevision = 1;

const QString menuIntrospection = uR"xml(  <interface name="com.canonical.dbusmenu">
    <property name="Version" type="u" access="read"/>
    <property name="TextDirection" type="s" access="read"/>
    <property name="Status" type="s" access="read"/>
    <property name="IconThemePath" type="as" access="read"/>
    <method name="GetLayout">
      <arg type="i" name="parentId" direction="in"/>
      <arg type="i" name="recursionDepth" direction="in"/>
      <arg type="as" name="propertyNames" direction="in"/>
      <arg type="u" name="revision" direction="out"/>
      <arg type="(ia{sv}av)" name="layout" direction="out"/>
    </method>
    <method name="GetGroupProperties">
      <arg type="ai" name="ids" direction="in"/>
      <arg type="as" name="propertyNames" direction="in"/>
      <arg type="a(ia{sv})" name="properties" direction="out"/>
    </method>
    <method name="GetProperty">
      <arg type="i" name="id" direction="in"/>
      <arg type="s" name="name" direction="in"/>
      <arg type="v" name="value" direction="out"/>
    </method>
    <method name="Event">
      <arg type="i" name="id" direction="in"/>
      <arg type="s" name="eventId" direction="in"/>
      <arg type="v" name="data" direction="in"/>
      <arg type="u" name="timestamp" direction="in"/>
    </method>
    <method name="EventGroup">
      <arg type="a(isvu)" name="events" direction="in"/>
      <arg type="ai" name="idErrors" direction="out"/>
    </method>
    <method name="AboutToShow">
      <arg type="i" name="id" direction="in"/>
      <arg type="b" name="needUpdate" direction="out"/>
    </method>
    <method name="AboutToShowGroup">
      <arg type="ai" name="ids" direction="in"/>
      <arg type="ai" name="updatesNeeded" direction="out"/>
      <arg type="ai" name="idErrors" direction="out"/>
    </method>
    <signal name="ItemsPropertiesUpdated">
      <arg type="a(ia{sv})" name="updatedProps"/>
      <arg type="a(ias)" name="removedProps"/>
    </signal>
    <signal name="LayoutUpdated">
      <arg type="u" name="revision"/>
      <arg type="i" name="parent"/>
    </signal>
    <signal name="ItemActivationRequested">
      <arg type="i" name="id"/>
      <arg type="u" name="timestamp"/>
    </signal>
  </interface>
)xml"_s;

QVariantMap menuProperties() {
    return {{u"Version"_s, menuVersion},
            {u"TextDirection"_s, QGuiApplication::isRightToLeft() ? u"rtl"_s : u"ltr"_s},
            {u"Status"_s, u"normal"_s},
            {u"IconThemePath"_s, QStringList()}};
}

QString keyName(const QString &key, TrayKeyNames names) {
    const bool isWord = names == TrayKeyNames::words && key == u","_s;
    return isWord ? u"comma"_s : key.toUpper();
}

QVariantMap lineProperties(const MenuItem &item, TrayKeyNames names) {
    if (item.text.isEmpty()) {
        return {{u"type"_s, u"separator"_s}};
    }
    QString label = item.text;
    QVariantMap properties{{u"label"_s, label.replace(u'_', u"__"_s)}}; // one marks a letter
    if (!item.action) {
        properties[u"enabled"_s] = false;
    }
    if (!item.key.isEmpty()) {
        const QList<QStringList> shortcut{{u"Control"_s, keyName(item.key, names)}};
        properties[u"shortcut"_s] = QVariant::fromValue(shortcut);
    }
    return properties;
}

QDBusMessage noSuchLine(const QDBusMessage &message, int id) {
    return message.createErrorReply(QDBusError::InvalidArgs,
                                    u"There is no line %1 in the menu"_s.arg(id));
}

} // namespace

MenuObject::MenuObject(std::vector<MenuItem> menu, TrayKeyNames keyNames)
    : m_menu(std::move(menu)), m_keyNames(keyNames) {
    menuwire::registerTypes();
}

QString MenuObject::introspect(const QString &) const {
    return menuIntrospection;
}

bool MenuObject::isLine(int id) const {
    return id >= 0 && static_cast<std::size_t>(id) <= m_menu.size();
}

std::optional<QVariantMap> MenuObject::propertiesOf(int id, const QStringList &names) const {
    if (!isLine(id)) {
        return std::nullopt;
    }
    QVariantMap properties =
        id == 0 ? QVariantMap{{u"children-display"_s, u"submenu"_s}}
                : lineProperties(m_menu.at(static_cast<std::size_t>(id) - 1), m_keyNames);
    if (!names.isEmpty()) {
        properties.removeIf([&](const auto &one) { return !names.contains(one.key()); });
    }
    return properties;
}

QDBusMessage MenuObject::layout(const QDBusMessage &message) const {
    const QVariantList arguments = message.arguments();
    const int parent = arguments.at(0).toInt();
    const int depth = arguments.at(1).toInt();
    const QStringList names = arguments.at(2).toStringList();
    const auto properties = propertiesOf(parent, names);
    if (!properties) {
        return noSuchLine(message, parent);
    }
    menuwire::Layout layout{.id = parent, .properties = *properties};
    for (int id = 1; parent == 0 && depth != 0 && isLine(id); ++id) {
        layout.children.append(menuwire::Layout{
            .id = id, .properties = propertiesOf(id, names).value_or(QVariantMap())});
    }
    return message.createReply({menuRevision, QVariant::fromValue(layout)});
}

QDBusMessage MenuObject::groupProperties(const QDBusMessage &message) const {
    const QVariantList arguments = message.arguments();
    auto ids = qdbus_cast<QList<int>>(arguments.at(0));
    const QStringList names = arguments.at(1).toStringList();
    if (ids.isEmpty()) { // stands for all
        for (int id = 0; isLine(id); ++id) {
            ids.append(id);
        }
    }
    QList<menuwire::Line> lines;
    for (const int id : ids) {
        if (const auto properties = propertiesOf(id, names)) {
            lines.append({.id = id, .properties = *properties});
        }
    }
    return message.createReply(QVariant::fromValue(lines));
}

QDBusMessage MenuObject::property(const QDBusMessage &message) const {
    const int id = message.arguments().at(0).toInt();
    const QString name = message.arguments().at(1).toString();
    const QVariantMap properties = propertiesOf(id, {name}).value_or(QVariantMap());
    const auto found = properties.find(name);
    return found == properties.end()
               ? noSuchLine(message, id)
               : message.createReply(QVariant::fromValue(QDBusVariant(*found)));
}

std::vector<menuwire::Event> MenuObject::eventsIn(const QDBusMessage &message) const {
    const QVariantList arguments = message.arguments();
    if (message.member() == u"Event"_s && message.signature() == u"isvu"_s) {
        return {{.id = arguments.at(0).toInt(), .name = arguments.at(1).toString()}};
    }
    if (message.member() == u"EventGroup"_s && message.signature() == u"a(isvu)"_s) {
        const auto events = qdbus_cast<QList<menuwire::Event>>(arguments.at(0));
        return {events.begin(), events.end()};
    }
    return {};
}

QDBusMessage MenuObject::answerTo(const QDBusMessage &message) const {
    const QString call = message.member() + u'/' + message.signature();
    if (call == u"GetLayout/iias"_s) {
        return layout(message);
    }
    if (call == u"GetGroupProperties/aias"_s) {
        return groupProperties(message);
    }
    if (call == u"GetProperty/is"_s) {
        return property(message);
    }
    const auto none = QVariant::fromValue(QList<int>());
    if (call == u"AboutToShow/i"_s) {
        return message.createReply(false);
    }
    if (call == u"AboutToShowGroup/ai"_s) {
        return message.createReply({none, none});
    }
    if (call == u"Event/isvu"_s) {
        const int id = message.arguments().at(0).toInt();
        return isLine(id) ? message.createReply() : noSuchLine(message, id);
    }
    if (call == u"EventGroup/a(isvu)"_s) {
        QList<int> unknown;
        for (const menuwire::Event &event : eventsIn(message)) {
            if (!isLine(event.id)) {
                unknown.append(event.id);
            }
        }
        return message.createReply(QVariant::fromValue(unknown));
    }
    return {};
}

bool MenuObject::handleMessage(const QDBusMessage &message, const QDBusConnection &connection) {
    QDBusMessage answer;
    if (const auto properties = answerOnProperties(message, menuInterface, menuProperties)) {
        answer = *properties;
    } else if (message.interface().isEmpty() || message.interface() == menuInterface) {
        answer = answerTo(message);
    }
    if (answer.type() == QDBusMessage::InvalidMessage) {
        return false; // the bus library answers that there is no such method
    }
    if (message.isReplyRequired()) {
        QDBusConnection(connection).send(answer);
    }
    for (const menuwire::Event &event : eventsIn(message)) {
        if (event.name != u"clicked"_s || event.id <= 0 || !isLine(event.id)) {
            continue;
        }
        // A copy, since the action may end the menu.
        const auto action = m_menu.at(static_cast<std::size_t>(event.id) - 1).action;
        if (action) {
            action();
            return true;
        }
    }
    return true;
}

} // namespace zeph
