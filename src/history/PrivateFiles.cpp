// SPDX-License-Identifier: MIT
#include "history/PrivateFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr QFile::Permissions ownerFile = QFile::ReadOwner | QFile::WriteOwner;
constexpr QFile::Permissions ownerFolder = ownerFile | QFile::ExeOwner;
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

void makePrivateFolder(const QString &folder) {
    const QFileInfo info(QDir::cleanPath(folder));
    const QDir parent = info.dir();
    // Made with its final mode, so that it stands open at no moment.
    if (!info.isDir() && parent.mkpath(u"."_s)) {
        parent.mkdir(info.fileName(), ownerFolder);
    }
}

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

} // namespace zeph
