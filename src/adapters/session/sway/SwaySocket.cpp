// SPDX-License-Identifier: MIT
#include "adapters/session/sway/SwaySocket.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace zeph {

QString swaySocketOf(const QString &former, qint64 process) {
    static const QRegularExpression form(uR"(^(.*/sway-ipc\.\d+\.)\d+\.sock$)"_s);
    const QRegularExpressionMatch match = form.match(former);
    return match.hasMatch() ? match.captured(1) + QString::number(process) + u".sock"_s : former;
}

} // namespace zeph
