// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariantMap>

#include <functional>
#include <optional>

class QObject;

namespace zeph {

/// The bus library's own limit of 25 s for an answer.
inline constexpr int busDefaultTimeout = -1;

/// Sends `call` without starting its service, and hands the answer, an error message included, to
/// `done` on this thread. Nothing is called once `context` is gone.
void callAsync(const QDBusConnection &bus, const QDBusMessage &call, int timeoutMilliseconds,
               QObject *context, std::function<void(const QDBusMessage &answer)> done);

/// Asks for all properties of an interface; `done` gets absent when the service is not there,
/// refuses, or answers something else.
void getAllProperties(const QDBusConnection &bus, const QString &service, const QString &path,
                      const QString &interface, QObject *context,
                      std::function<void(const std::optional<QVariantMap> &)> done);

} // namespace zeph
