// SPDX-License-Identifier: MIT
#include "platform/linux/dbus/DBusCalls.h"

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

void getAllProperties(const QDBusConnection &bus, const QString &service, const QString &path,
                      const QString &interface, QObject *context,
                      std::function<void(const std::optional<QVariantMap> &)> done) {
    QDBusMessage call = QDBusMessage::createMethodCall(
        service, path, u"org.freedesktop.DBus.Properties"_s, u"GetAll"_s);
    call << interface;
    callAsync(bus, call, busDefaultTimeout, context,
              [done = std::move(done)](const QDBusMessage &answer) {
                  if (answer.type() != QDBusMessage::ReplyMessage ||
                      answer.signature() != u"a{sv}"_s) {
                      done(std::nullopt);
                      return;
                  }
                  done(qdbus_cast<QVariantMap>(answer.arguments().constFirst()));
              });
}

} // namespace zeph
