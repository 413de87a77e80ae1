// SPDX-License-Identifier: MIT
#include "host/SupportPage.h"

namespace zeph {

QUrl supportPage() {
    return QUrl(QStringLiteral(ZEPH_SUPPORT_URL), QUrl::StrictMode);
}

} // namespace zeph
