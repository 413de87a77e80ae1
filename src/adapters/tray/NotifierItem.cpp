// SPDX-License-Identifier: MIT
#include "adapters/tray/NotifierItem.h"

#include "adapters/bus/DBusCalls.h"
#include "base/Log.h"

#include <QDBusVariant>

#include <utility>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

const QString watcherInterface = u"org.kde.StatusNotifierWatcher"_s; // and name
const QString watcherPath = u"/StatusNotifierWatcher"_s;
const QString itemPath = u"/StatusNotifierItem"_s; // where watchers look

/// A watcher that does not tell is taken for one with a host.
bool tellsOfNoHost(const QDBusMessage &answer) {
    if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != u"v"_s) {
        return false;
    }
    const QVariant isRegistered = answer.arguments().constFirst().value<QDBusVariant>().variant();
    return isRegistered.metaType() == QMetaType::fromType<bool>() && !isRegistered.toBool();
}

} // namespace

NotifierItem::NotifierItem(QDBusConnection bus, const TrayFacts &facts, const TrayTools &tools,
                           std::function<void()> changed)
    : m_bus(std::move(bus)),
      m_changed(std::move(changed)),
      m_item(facts, tools),
      m_menu(facts.menu, tools.keyNames),
      m_watcher(m_bus, watcherInterface, [this] { watcherChanged(); }) {
    if (!m_bus.isConnected()) {
        m_host = Host::absent;
        return;
    }
    m_bus.registerVirtualObject(itemPath, &m_item);
    m_bus.registerVirtualObject(NotifierObject::menuPath(), &m_menu);
    for (const QString &signal :
         {u"StatusNotifierHostRegistered"_s, u"StatusNotifierHostUnregistered"_s}) {
        m_watcher.follow({{}, watcherPath, watcherInterface, signal, {}, {}},
                         [this](const QDBusMessage &) { askForHost(); });
    }
}

NotifierItem::~NotifierItem() {
    m_bus.unregisterObject(itemPath);
    m_bus.unregisterObject(NotifierObject::menuPath());
}

void NotifierItem::watcherChanged() {
    if (!m_watcher.isThere()) {
        setHost(Host::absent);
        return;
    }
    m_watcher.ask(watcherPath, watcherInterface, u"RegisterStatusNotifierItem"_s,
                  {m_bus.baseService()}, busDefaultTimeout, [](const QDBusMessage &answer) {
                      if (answer.type() == QDBusMessage::ErrorMessage) {
                          qCInfo(logSystem)
                              << "the tray refuses the item:" << answer.errorMessage();
                      }
                  });
    askForHost();
}

void NotifierItem::askForHost() {
    m_watcher.ask(watcherPath, u"org.freedesktop.DBus.Properties"_s, u"Get"_s,
                  {watcherInterface, u"IsStatusNotifierHostRegistered"_s}, busDefaultTimeout,
                  [this](const QDBusMessage &answer) {
                      setHost(tellsOfNoHost(answer) ? Host::absent : Host::present);
                  });
}

void NotifierItem::setHost(Host host) {
    if (std::exchange(m_host, host) != host) {
        m_changed();
    }
}

} // namespace zeph
