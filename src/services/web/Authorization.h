// SPDX-License-Identifier: MIT
#pragma once

#include "ports/HttpClient.h"

#include <QString>

namespace zeph {

/// The header that shows a key or token to its service.
inline HttpHeader bearer(const QString &token) {
    return {"Authorization", "Bearer " + token.toUtf8()};
}

/// The same where the key is a user name without a password.
inline HttpHeader basicUser(const QString &user) {
    return {"Authorization", "Basic " + (user.toUtf8() + ':').toBase64()};
}

} // namespace zeph
