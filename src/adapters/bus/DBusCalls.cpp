// SPDX-License-Identifier: MIT
#include "adapters/bus/DBusCalls.h"

#include <QDBusArgument>
#include <QDBusPendingCallWatcher>

#include <algorithm>
#include <array>

namespace zeph {

using namespace Qt::StringLiterals;

void callAsync(const QDBusConnection &bus, const QDBusMessage &call, int timeoutMilliseconds,
               QObject *context, std::function<void(const QDBusMessage &answer)> done) {
    QDBusMessage message = call;
    message.setAutoStartService(false);
    auto *watcher =
        new QDBusPendingCallWatcher(bus.asyncCall(message, timeoutMilliseconds), context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context,
                     [done = std::move(done)](QDBusPendingCallWatcher *finished) {
                         finished->deleteLater();
                         done(finished->reply());
                     });
}

void waitUntilSent(const QDBusConnection &bus, std::chrono::milliseconds patience) {
    // Messages stay in order, so it answers this after it has taken the ones before.
    bus.call(QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                            u"org.freedesktop.DBus"_s, u"GetId"_s),
             QDBus::Block, static_cast<int>(patience.count()));
}

std::optional<QVariantMap> propertiesIn(const QDBusMessage &answer) {
    const bool areThere =
        answer.type() == QDBusMessage::ReplyMessage && answer.signature() == u"a{sv}"_s;
    return areThere ? std::optional(qdbus_cast<QVariantMap>(answer.arguments().constFirst()))
                    : std::nullopt;
}

bool tellsOfNoService(const QString &errorName) {
    const std::array beginnings{u"org.freedesktop.DBus.Error.ServiceUnknown"_s,
                                u"org.freedesktop.DBus.Error.NameHasNoOwner"_s,
                                u"org.freedesktop.DBus.Error.Disconnected"_s,
                                u"org.freedesktop.DBus.Error.Spawn."_s,
                                u"org.freedesktop.systemd1."_s};
    return std::any_of(beginnings.begin(), beginnings.end(),
                       [&](const QString &beginning) { return errorName.startsWith(beginning); });
}

} // namespace zeph
