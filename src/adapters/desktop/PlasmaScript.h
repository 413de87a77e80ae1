// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>

#include <optional>

namespace zeph {

/// Has Plasma's shell, if it runs, evaluate a script; the answer may be an error. Waits for the
/// answer, so not on the main thread. `bus` is the session bus.
QDBusMessage evaluateInPlasma(const QDBusConnection &bus, const QString &script);

/// What the script printed; absent for an error, and for an answer of another kind.
std::optional<QString> printedBy(const QDBusMessage &answer);

} // namespace zeph
