// SPDX-License-Identifier: MIT
#pragma once

#include <QFileInfo>
#include <QString>

namespace zeph {

/// The name under which something damaged is to be kept: with ".damaged" behind it, and a number
/// behind that where `isTaken` says so.
template <typename IsTaken>
QString unusedDamagedName(const QString &damaged, IsTaken isTaken) {
    const QString name = damaged + QStringLiteral(".damaged");
    QString unused = name;
    for (int number = 2; isTaken(unused); ++number) {
        unused = name + QStringLiteral(".%1").arg(number);
    }
    return unused;
}

/// The name under which a damaged file at `path` is to be kept.
inline QString unusedDamagedName(const QString &path) {
    return unusedDamagedName(path, [](const QString &name) { return QFileInfo::exists(name); });
}

} // namespace zeph
