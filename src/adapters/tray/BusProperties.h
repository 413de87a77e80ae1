// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusMessage>
#include <QVariantMap>

#include <functional>
#include <optional>

namespace zeph {

/// The answer of an object with these read-only properties of one interface; absent where the
/// message does not ask about properties.
std::optional<QDBusMessage> answerOnProperties(const QDBusMessage &message,
                                               const QString &interface,
                                               const std::function<QVariantMap()> &properties);

} // namespace zeph
