// SPDX-License-Identifier: MIT
#include "adapters/login/BackgroundRequest.h"

#include "adapters/bus/BusService.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>

#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const QString portalName = u"org.freedesktop.portal.Desktop"_s;
const QString portalPath = u"/org/freedesktop/portal/desktop"_s;
const QString backgroundInterface = u"org.freedesktop.portal.Background"_s;
const QString requestInterface = u"org.freedesktop.portal.Request"_s;

constexpr uint responseAllowed = 0;
constexpr uint responseDismissed = 1;

QString nextToken() {
    static int count = 0;
    return u"tavi%1"_s.arg(++count);
}

/// Where the portal keeps the request of a caller; its answer can come before that of the call.
QString handleOf(const QString &caller, const QString &token) {
    return portalPath + u"/request/"_s + QString(caller).remove(u':').replace(u'.', u'_') + u'/' +
           token;
}

} // namespace

BackgroundRequest::BackgroundRequest(QDBusConnection sessionBus, bool wantsAutostart, Done done)
    : m_bus(std::move(sessionBus)), m_wantsAutostart(wantsAutostart), m_done(std::move(done)) {
    if (!m_bus.isConnected()) {
        finish(u"there is no session bus"_s);
        return;
    }
    const QString token = nextToken();
    follow(handleOf(m_bus.baseService(), token));
    ask(token);
}

BackgroundRequest::~BackgroundRequest() = default;

/// Unlike most calls of ours this one starts the service: in a sandbox nothing else can answer.
void BackgroundRequest::ask(const QString &token) {
    QDBusMessage call = QDBusMessage::createMethodCall(portalName, portalPath, backgroundInterface,
                                                       u"RequestBackground"_s);
    call << QString() // of no window
         << QVariantMap{{u"handle_token"_s, token},
                        {u"reason"_s, u"Your wallpaper comes back with every login."_s},
                        {u"autostart"_s, m_wantsAutostart}};
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), &m_context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &m_context,
                     [this](QDBusPendingCallWatcher *finished) {
                         finished->deleteLater();
                         haveHandle(finished->reply());
                     });
}

void BackgroundRequest::follow(const QString &handle) {
    if (std::exchange(m_handle, handle) != handle) {
        m_watch = std::make_unique<SignalWatch>(
            m_bus, BusSignal{{}, handle, requestInterface, u"Response"_s, {}, u"ua{sv}"_s},
            [this](const QDBusMessage &signal) { haveResponse(signal); });
    }
}

void BackgroundRequest::haveHandle(const QDBusMessage &answer) {
    if (m_isAnswered) {
        return;
    }
    if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != u"o"_s) {
        finish(u"the desktop can't be asked: %1"_s.arg(answer.errorMessage()));
        return;
    }
    follow(answer.arguments().constFirst().value<QDBusObjectPath>().path());
    // The process that answered, whatever becomes of the name.
    m_portal = std::make_unique<BusService>(m_bus, answer.service(), [this] {
        if (!m_portal->isThere()) {
            finish(u"the desktop went away before it answered"_s);
        }
    });
}

void BackgroundRequest::haveResponse(const QDBusMessage &signal) {
    const uint response = signal.arguments().at(0).toUInt();
    const auto results = qdbus_cast<QVariantMap>(signal.arguments().at(1));
    if (response == responseDismissed) {
        finish(u"the question was dismissed"_s);
    } else if (response != responseAllowed ||
               results.value(u"autostart"_s).toBool() != m_wantsAutostart) {
        finish(u"the desktop refused"_s);
    } else {
        finish(std::nullopt);
    }
}

void BackgroundRequest::finish(const std::optional<QString> &error) {
    if (std::exchange(m_isAnswered, true)) {
        return;
    }
    QMetaObject::invokeMethod(
        &m_context,
        [this, error] {
            const Done done = std::exchange(m_done, {});
            done(error); // which may end this
        },
        Qt::QueuedConnection);
}

} // namespace zeph
