// SPDX-License-Identifier: MIT
#include "adapters/places/GeoClueSession.h"

#include "adapters/bus/BusService.h"
#include "adapters/bus/DBusCalls.h"
#include "adapters/places/GeoClueValues.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
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
    if (!m_isClosed && m_service && m_service->isThere()) {
        m_service->send(m_client, clientInterface, u"Stop"_s, {});
        m_service->send(managerPath, managerInterface, u"DeleteClient"_s,
                        {QVariant::fromValue(QDBusObjectPath(m_client))});
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
    m_client = answer.arguments().constFirst().value<QDBusObjectPath>().path();
    // The process that answered, whatever becomes of the name.
    m_service = std::make_unique<BusService>(m_bus, answer.service(), [this] { ownerChanged(); });
    m_service->follow({{}, m_client, clientInterface, u"LocationUpdated"_s, {}, u"oo"_s},
                      [this](const QDBusMessage &signal) { locationUpdated(signal); });
}

void GeoClueSession::ownerChanged() {
    if (!m_service->isThere()) {
        fail(GeoClueFailure::lost);
    } else if (!m_isClosed) {
        setProperty(u"DesktopId"_s, desktopId);
        setProperty(u"RequestedAccuracyLevel"_s, accuracyCity);
        start();
    }
}

/// The answer is not waited for: without the property, Start is what fails.
void GeoClueSession::setProperty(const QString &name, const QVariant &value) const {
    m_service->send(m_client, propertiesInterface, u"Set"_s,
                    {clientInterface, name, QVariant::fromValue(QDBusVariant(value))});
}

void GeoClueSession::start() {
    m_service->ask(m_client, clientInterface, u"Start"_s, {}, startTimeoutMilliseconds,
                   [this](const QDBusMessage &answer) {
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
    m_service->ask(location, propertiesInterface, u"GetAll"_s, {locationInterface},
                   busDefaultTimeout, [this, reading](const QDBusMessage &answer) {
                       const auto properties = propertiesIn(answer);
                       // A newer fix is on its way otherwise.
                       const auto fix = properties && reading == m_reading ? positionIn(*properties)
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
