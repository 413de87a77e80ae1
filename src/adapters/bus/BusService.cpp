// SPDX-License-Identifier: MIT
#include "adapters/bus/BusService.h"

#include "adapters/bus/DBusCalls.h"
#include "base/Log.h"

#include <utility>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

const QString busName = u"org.freedesktop.DBus"_s; // its interface has the same name
const QString busPath = u"/org/freedesktop/DBus"_s;

// What the bus library itself tells of the connection.
const QString localPath = u"/org/freedesktop/DBus/Local"_s;
const QString localInterface = u"org.freedesktop.DBus.Local"_s;

} // namespace

BusService::BusService(QDBusConnection bus, QString name, std::function<void()> ownerChanged)
    : m_bus(std::move(bus)), m_name(std::move(name)), m_ownerChanged(std::move(ownerChanged)) {
    if (!m_bus.isConnected()) {
        m_isSettled = true;
        return;
    }
    m_watches.push_back(std::make_unique<SignalWatch>(
        m_bus, BusSignal{busName, busPath, busName, u"NameOwnerChanged"_s, {m_name}, u"sss"_s},
        [this](const QDBusMessage &signal) { setOwner(signal.arguments().at(2).toString()); }));
    m_watches.push_back(std::make_unique<SignalWatch>(
        m_bus, BusSignal{{}, localPath, localInterface, u"Disconnected"_s, {}, {}},
        [this](const QDBusMessage &) { setOwner({}); }));
    QDBusMessage question =
        QDBusMessage::createMethodCall(busName, busPath, busName, u"GetNameOwner"_s);
    question << m_name;
    callAsync(m_bus, question, busDefaultTimeout, &m_context, [this](const QDBusMessage &answer) {
        // A signal that came before it told the same.
        if (!m_isSettled) {
            const bool isOwned =
                answer.type() == QDBusMessage::ReplyMessage && answer.signature() == u"s"_s;
            setOwner(isOwned ? answer.arguments().constFirst().toString() : QString());
        }
    });
}

void BusService::setOwner(const QString &owner) {
    ++m_life;
    m_isSettled = true;
    m_owner = owner;
    if (!isThere()) {
        qCInfo(logSystem) << m_name << "is not on the bus";
    }
    m_ownerChanged();
}

// By the owner's name and not the service's: to subscribe to that, the bus library would wait for
// the bus to tell the owner.
std::unique_ptr<SignalWatch> BusService::watch(BusSignal signal, SignalWatch::Handler handler) {
    return std::make_unique<SignalWatch>(
        m_bus, std::move(signal),
        [this, handler = std::move(handler)](const QDBusMessage &message) {
            if (hasSent(message)) {
                handler(message);
            }
        });
}

void BusService::follow(BusSignal signal, SignalWatch::Handler handler) {
    if (m_bus.isConnected()) {
        m_watches.push_back(watch(std::move(signal), std::move(handler)));
    }
}

QDBusMessage BusService::callTo(const QString &path, const QString &interface,
                                const QString &method, const QVariantList &arguments) const {
    QDBusMessage call = QDBusMessage::createMethodCall(m_owner, path, interface, method);
    call.setArguments(arguments);
    return call;
}

void BusService::send(const QString &path, const QString &interface, const QString &method,
                      const QVariantList &arguments) const {
    if (isThere()) {
        m_bus.send(callTo(path, interface, method, arguments));
    }
}

void BusService::ask(const QString &path, const QString &interface, const QString &method,
                     const QVariantList &arguments, int timeoutMilliseconds,
                     std::function<void(const QDBusMessage &)> done) {
    if (!isThere()) {
        return;
    }
    callAsync(m_bus, callTo(path, interface, method, arguments), timeoutMilliseconds, &m_context,
              [this, life = m_life, done = std::move(done)](const QDBusMessage &answer) {
                  if (life == m_life) {
                      done(answer);
                  }
              });
}

} // namespace zeph
