// SPDX-License-Identifier: MIT
#include "adapters/tray/NotifierObject.h"

#include "adapters/tray/BusProperties.h"
#include "adapters/tray/NotifierWire.h"
#include "adapters/tray/TrayPicture.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>

#include <array>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

const QString itemInterface = u"org.kde.StatusNotifierItem"_s;

// Of panels, at one and two device pixels a point.
constexpr std::array pictureSizes{16, 22, 24, 32, 48};
constexpr int seamOfPicture = 1;

const QString itemIntrospection = uR"xml(  <interface name="org.kde.StatusNotifierItem">
    <property name="Category" type="s" access="read"/>
    <property name="Id" type="s" access="read"/>
    <property name="Title" type="s" access="read"/>
    <property name="Status" type="s" access="read"/>
    <property name="WindowId" type="i" access="read"/>
    <property name="IconThemePath" type="s" access="read"/>
    <property name="IconName" type="s" access="read"/>
    <property name="IconPixmap" type="a(iiay)" access="read"/>
    <property name="IconAccessibleDesc" type="s" access="read"/>
    <property name="OverlayIconName" type="s" access="read"/>
    <property name="OverlayIconPixmap" type="a(iiay)" access="read"/>
    <property name="AttentionIconName" type="s" access="read"/>
    <property name="AttentionIconPixmap" type="a(iiay)" access="read"/>
    <property name="AttentionMovieName" type="s" access="read"/>
    <property name="ToolTip" type="(sa(iiay)ss)" access="read"/>
    <property name="ItemIsMenu" type="b" access="read"/>
    <property name="Menu" type="o" access="read"/>
    <method name="ContextMenu">
      <arg type="i" name="x" direction="in"/>
      <arg type="i" name="y" direction="in"/>
    </method>
    <method name="Activate">
      <arg type="i" name="x" direction="in"/>
      <arg type="i" name="y" direction="in"/>
    </method>
    <method name="SecondaryActivate">
      <arg type="i" name="x" direction="in"/>
      <arg type="i" name="y" direction="in"/>
    </method>
    <method name="Scroll">
      <arg type="i" name="delta" direction="in"/>
      <arg type="s" name="orientation" direction="in"/>
    </method>
    <signal name="NewTitle"/>
    <signal name="NewIcon"/>
    <signal name="NewAttentionIcon"/>
    <signal name="NewOverlayIcon"/>
    <signal name="NewToolTip"/>
    <signal name="NewStatus">
      <arg type="s" name="status"/>
    </signal>
  </interface>
)xml"_s;

QList<notifierwire::Pixmap> picturesOf(const QString &symbol, const TrayTools &tools) {
    QList<notifierwire::Pixmap> pictures;
    for (const int size : pictureSizes) {
        const QImage mask = tools.drawSymbol(symbol, size - 2 * seamOfPicture);
        pictures.append(notifierwire::pixmapOf(seamedPicture(mask, seamOfPicture)));
    }
    return pictures;
}

} // namespace

NotifierObject::NotifierObject(const TrayFacts &facts, const TrayTools &tools)
    : m_facts(facts), m_tools(tools) {
    notifierwire::registerTypes();
}

QString NotifierObject::menuPath() {
    return u"/MenuBar"_s;
}

QString NotifierObject::introspect(const QString &) const {
    return itemIntrospection;
}

QVariantMap NotifierObject::properties() const {
    const auto noPictures = QVariant::fromValue(QList<notifierwire::Pixmap>());
    const notifierwire::ToolTip toolTip{.title = m_facts.description};
    return {
        {u"Category"_s, u"ApplicationStatus"_s},
        {u"Id"_s, u"com.tavi.Tavi"_s},
        {u"Title"_s, m_facts.description},
        {u"Status"_s, u"Active"_s},
        {u"WindowId"_s, 0},
        {u"IconThemePath"_s, QString()},
        {u"IconName"_s, m_tools.iconName},
        {u"IconPixmap"_s, QVariant::fromValue(picturesOf(m_facts.symbol, m_tools))},
        {u"IconAccessibleDesc"_s, m_facts.description},
        {u"OverlayIconName"_s, QString()},
        {u"OverlayIconPixmap"_s, noPictures},
        {u"AttentionIconName"_s, QString()},
        {u"AttentionIconPixmap"_s, noPictures},
        {u"AttentionMovieName"_s, QString()},
        {u"ToolTip"_s, QVariant::fromValue(toolTip)},
        {u"ItemIsMenu"_s, true},
        {u"Menu"_s, QVariant::fromValue(QDBusObjectPath(menuPath()))},
    };
}

bool NotifierObject::handleMessage(const QDBusMessage &message, const QDBusConnection &connection) {
    if (const auto answer =
            answerOnProperties(message, itemInterface, [this] { return properties(); })) {
        return QDBusConnection(connection).send(*answer);
    }
    if (!message.interface().isEmpty() && message.interface() != itemInterface) {
        return false;
    }
    const QString call = message.member() + u'/' + message.signature();
    // Some hosts call for the menu although they are told that they are to show it themselves.
    const bool wantsMenu = call == u"Activate/ii"_s || call == u"ContextMenu/ii"_s;
    if (!wantsMenu && call != u"SecondaryActivate/ii"_s && call != u"Scroll/is"_s) {
        return false; // the bus library answers that there is no such method
    }
    if (message.isReplyRequired()) {
        QDBusConnection(connection).send(message.createReply());
    }
    if (wantsMenu) {
        m_tools.popUpMenu(m_facts.menu,
                          {message.arguments().at(0).toInt(), message.arguments().at(1).toInt()});
    }
    return true;
}

} // namespace zeph
