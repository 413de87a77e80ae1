// SPDX-License-Identifier: MIT
#include "adapters/bus/DBusCalls.h"

#include <QDBusArgument>
#include <QDBusPendingCallWatcher>

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

std::optional<QVariantMap> propertiesIn(const QDBusMessage &answer) {
    const bool areThere =
        answer.type() == QDBusMessage::ReplyMessage && answer.signature() == u"a{sv}"_s;
    return areThere ? std::optional(qdbus_cast<QVariantMap>(answer.arguments().constFirst()))
                    : std::nullopt;
}

} // namespace zeph
