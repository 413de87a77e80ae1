// SPDX-License-Identifier: MIT
#pragma once

#include <QStandardPaths>
#include <QString>

namespace zeph {

/// The program's own folder below the user's folder of this kind. Need not be there.
inline QString ownFolder(QStandardPaths::StandardLocation base) {
    return QStandardPaths::writableLocation(base) + QStringLiteral("/Zeph");
}

} // namespace zeph
