// SPDX-License-Identifier: MIT
#pragma once

#include "base/UuidText.h"

namespace zeph {

/// The setting that tells whether an account was connected.
inline QString configuredKey(const QUuid &id) {
    return QStringLiteral("zeph.integrations.%1.configured").arg(uuidText(id));
}

/// The setting that tells whether a secret was kept for an account. Some are connected without.
inline QString secretKeptKey(const QUuid &id) {
    return QStringLiteral("zeph.integrations.%1.secretKept").arg(uuidText(id));
}

/// The name under which the secret of an account is kept.
inline QString secretAccount(const QUuid &id) {
    return QStringLiteral("integration.") + uuidText(id);
}

/// The setting that tells whether custom endpoints are kept, and the name under which they are,
/// all in one: their headers may hold keys.
inline QString endpointsExistKey() {
    return QStringLiteral("zeph.integrations.custom.exists");
}
inline QString endpointsAccount() {
    return QStringLiteral("custom_apis");
}

} // namespace zeph
