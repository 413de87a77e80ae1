// SPDX-License-Identifier: MIT
#include "host/SupportPage.h"

namespace zeph {

QUrl supportPage() {
    const QString configured = QStringLiteral(ZEPH_SUPPORT_URL);
    return {configured, QUrl::StrictMode};
}

} // namespace zeph
