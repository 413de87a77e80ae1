// SPDX-License-Identifier: MIT
#include "adapters/updates/PackageId.h"

#include <QStringList>

namespace zeph {

std::optional<PackageId> parsePackageId(const QString &text) {
    const QStringList parts = text.split(u';');
    if (parts.size() != 4 || parts.at(0).isEmpty() || parts.at(1).isEmpty()) {
        return std::nullopt;
    }
    return PackageId{parts.at(0), parts.at(1), parts.at(2)};
}

QString makersVersion(const QString &version) {
    const QString withoutEpoch = version.sliced(version.indexOf(u':') + 1);
    const qsizetype revision = withoutEpoch.lastIndexOf(u'-');
    return revision > 0 ? withoutEpoch.first(revision) : withoutEpoch;
}

bool holdsVersion(const QString &packaged, const QString &own) {
    const QString name = makersVersion(packaged);
    if (!name.startsWith(own)) {
        return false;
    }
    const QChar next = name.size() > own.size() ? name[own.size()] : QChar();
    return next != u'.' && !next.isDigit();
}

QString newerVersionName(const QString &newer, const QString &older) {
    const QString name = makersVersion(newer);
    return name == makersVersion(older) ? newer : name;
}

} // namespace zeph
