// SPDX-License-Identifier: MIT
#include "platform/linux/location/GeoClueSession.h"

#include "platform/linux/dbus/DBusCalls.h"
#include "platform/linux/dbus/SignalWatch.h"
#include "platform/linux/location/GeoClueValues.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QDBusVariant>

#include <utility>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

const QString service = u"org.freedesktop.GeoClue2"_s;
const QString managerPath = u"/org/freedesktop/GeoClue2/Manager"_s;
const QString managerInterface = u"org.freedesktop.GeoClue2.Manager"_s;
const QString clientInterface = u"org.freedesktop.GeoClue2.Client"_s;
const QString locationInterface = u"org.freedesktop.GeoClue2.Location"_s;
const QString propertiesInterface = u"org.freedesktop.DBus.Properties"_s;

// The name of our desktop entry, by which the desktop asks the user.
const QString desktopId = u"com.tavi.Tavi"_s;
constexpr uint accuracyCity = 4;

// The answer to Start may wait for the user to answer the desktop's question.
constexpr int startTimeoutMilliseconds = 300'000;

} // namespace

GeoClueSession::GeoClueSession(QDBusConnection bus, GeoClueHandlers handlers)
    : m_bus(std::move(bus)), m_handlers(std::move(handlers)) {
    if (m_bus.isConnected()) {
        askForClient();
    } else {
        QMetaObject::invokeMethod(
            &m_context, [this] { fail(GeoClueFailure::absent); }, Qt::QueuedConnection);
    }
}

GeoClueSession::~GeoClueSession() {
    close();
}

void GeoClueSession::close() {
    if (!m_isClosed && !m_client.isEmpty()) {
        m_bus.send(QDBusMessage::createMethodCall(m_owner, m_client, clientInterface, u"Stop"_s));
        QDBusMessage leave = QDBusMessage::createMethodCall(m_owner, managerPath, managerInterface,
                                                            u"DeleteClient"_s);
        leave << QVariant::fromValue(QDBusObjectPath(m_client));
        m_bus.send(leave);
    }
    m_isClosed = true;
}

/// Unlike every other call of ours this one starts the service: it ends by itself when nobody
/// needs it.
void GeoClueSession::askForClient() {
    const QDBusMessage call =
        QDBusMessage::createMethodCall(service, managerPath, managerInterface, u"GetClient"_s);
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), &m_context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &m_context,
                     [this](QDBusPendingCallWatcher *finished) {
                         finished->deleteLater();
                         haveClient(finished->reply());
                     });
}

void GeoClueSession::haveClient(const QDBusMessage &answer) {
    if (m_isClosed) {
        return; // the service keeps the client, idle, for the next session
    }
    if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != u"o"_s) {
        fail(failureOf(answer.errorName()));
        return;
    }
    m_owner = answer.service();
    m_client = answer.arguments().constFirst().value<QDBusObjectPath>().path();
    m_ownerWatch = std::make_unique<QDBusServiceWatcher>(
        m_owner, m_bus, QDBusServiceWatcher::WatchForUnregistration);
    QObject::connect(m_ownerWatch.get(), &QDBusServiceWatcher::serviceUnregistered, &m_context,
                     [this] { fail(GeoClueFailure::lost); });
    m_updates = std::make_unique<SignalWatch>(
        m_bus, BusSignal{m_owner, m_client, clientInterface, u"LocationUpdated"_s, {}, u"oo"_s},
        [this](const QDBusMessage &signal) { locationUpdated(signal); });
    setProperty(u"DesktopId"_s, desktopId);
    setProperty(u"RequestedAccuracyLevel"_s, accuracyCity);
    start();
}

/// The answer is not waited for: without the property, Start is what fails.
void GeoClueSession::setProperty(const QString &name, const QVariant &value) const {
    QDBusMessage call =
        QDBusMessage::createMethodCall(m_owner, m_client, propertiesInterface, u"Set"_s);
    call << clientInterface << name << QVariant::fromValue(QDBusVariant(value));
    m_bus.send(call);
}

void GeoClueSession::start() {
    callAsync(m_bus, QDBusMessage::createMethodCall(m_owner, m_client, clientInterface, u"Start"_s),
              startTimeoutMilliseconds, &m_context, [this](const QDBusMessage &answer) {
                  if (answer.type() != QDBusMessage::ReplyMessage) {
                      const auto failure = failureOf(answer.errorName());
                      // It was there a moment ago.
                      fail(failure == GeoClueFailure::absent ? GeoClueFailure::lost : failure);
                  } else if (!m_isClosed) {
                      m_handlers.started();
                  }
              });
}

void GeoClueSession::locationUpdated(const QDBusMessage &signal) {
    if (!m_isClosed) {
        read(signal.arguments().at(1).value<QDBusObjectPath>().path());
    }
}

void GeoClueSession::read(const QString &location) {
    const quint64 reading = ++m_reading;
    getAllProperties(m_bus, m_owner, location, locationInterface, &m_context,
                     [this, reading](const std::optional<QVariantMap> &properties) {
                         // A newer fix is on its way otherwise.
                         const auto fix = properties && reading == m_reading
                                              ? positionIn(*properties)
                                              : std::nullopt;
                         if (fix && !m_isClosed) {
                             m_handlers.located(*fix);
                         }
                     });
}

void GeoClueSession::fail(GeoClueFailure failure) {
    if (!m_isClosed) {
        close();
        m_handlers.failed(failure);
    }
}

} // namespace zeph
