// SPDX-License-Identifier: MIT
#include "history/PrivateFiles.h"

#include "base/DamagedName.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr QFile::Permissions ownerFile = QFile::ReadOwner | QFile::WriteOwner;
constexpr QFile::Permissions others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                      QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;

/// Only takes permissions away: what the user made read-only stays so.
void closeToOthers(const QString &path) {
    const QFile::Permissions present = QFile::permissions(path);
    if (present.testAnyFlags(others)) {
        QFile::setPermissions(path, present & ownerFile);
    }
}

} // namespace

void makePrivateDatabaseFile(const QString &path) {
    QFile fresh(path);
    fresh.open(QFile::WriteOnly | QFile::NewOnly, ownerFile);
    fresh.close();
    // SQLite gives new side files the mode of the database; these may be older than that.
    for (const QString &file : {path, path + u"-wal"_s, path + u"-shm"_s}) {
        if (QFileInfo(file).isFile()) {
            closeToOthers(file);
        }
    }
}

std::optional<QString> setDatabaseAside(const QString &path) {
    const QString aside = unusedDamagedName(path);
    // The side files first: left alone beside a new file they would be taken for its own.
    for (const QString &suffix : {u"-wal"_s, u"-shm"_s}) {
        if (QFileInfo::exists(path + suffix) && !QFile::rename(path + suffix, aside + suffix)) {
            return std::nullopt;
        }
    }
    return QFile::rename(path, aside) ? std::optional(aside) : std::nullopt;
}

} // namespace zeph
