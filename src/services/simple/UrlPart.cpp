// SPDX-License-Identifier: MIT
#include "services/simple/UrlPart.h"

#include <QUrl>

namespace zeph {

std::optional<QString> urlPart(const QString &text) {
    if (!text.isValidUtf16()) {
        return std::nullopt;
    }
    return QString::fromLatin1(QUrl::toPercentEncoding(text));
}

} // namespace zeph
