// SPDX-License-Identifier: MIT
#include "base/PrivateFolder.h"

#include <QDir>
#include <QFileInfo>

namespace zeph {

bool makePrivateFolder(const QString &folder) {
    const QFileInfo info(QDir::cleanPath(folder));
    const QDir parent = info.dir();
    // Made with its final mode, so that it stands open at no moment. Somebody else may make it in
    // the meantime.
    return info.isDir() ||
           (parent.mkpath(QStringLiteral(".")) &&
            parent.mkdir(info.fileName(),
                         QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner)) ||
           QFileInfo(info.filePath()).isDir();
}

} // namespace zeph
