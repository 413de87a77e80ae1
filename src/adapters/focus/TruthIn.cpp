// SPDX-License-Identifier: MIT
#include "adapters/focus/TruthIn.h"

#include <QDBusVariant>

namespace zeph {

std::optional<bool> truthIn(const QVariant &value) {
    const bool isWrapped = value.metaType() == QMetaType::fromType<QDBusVariant>();
    const QVariant inner = isWrapped ? value.value<QDBusVariant>().variant() : value;
    return inner.metaType() == QMetaType::fromType<bool>() ? std::optional(inner.toBool())
                                                           : std::nullopt;
}

} // namespace zeph
