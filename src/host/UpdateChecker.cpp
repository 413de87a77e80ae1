// SPDX-License-Identifier: MIT
#include "host/UpdateChecker.h"

using namespace Qt::StringLiterals;

namespace zeph {

QString UpdateChecker::currentVersion() {
    return currentVersion(QStringLiteral(ZEPH_VERSION));
}

QString UpdateChecker::currentVersion(const QString &built) {
    return built.isEmpty() ? u"1.0"_s : built;
}

} // namespace zeph
