// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariantMap>

#include <chrono>
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

/// Waits until the bus has what was sent to others over this connection, no longer than `patience`.
/// For the end of the program, with which goes what has not left by then.
void waitUntilSent(const QDBusConnection &bus, std::chrono::milliseconds patience);

/// The properties in an answer to GetAll; absent for an error and for anything else.
std::optional<QVariantMap> propertiesIn(const QDBusMessage &answer);

/// Whether the error of this name says that the service is not there: it is not installed, can't be
/// started, or is switched off as a unit of the system.
bool tellsOfNoService(const QString &errorName);

} // namespace zeph
