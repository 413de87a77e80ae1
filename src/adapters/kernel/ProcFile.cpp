// SPDX-License-Identifier: MIT
#include "adapters/kernel/ProcFile.h"

#include <QFile>

namespace zeph {

QByteArray procFileContents(const QString &path) {
    // Far above what thousands of processors, interrupts and links need.
    constexpr qint64 limit = 4'194'304;
    QFile file(path);
    // Unbuffered, since files of /proc are made whole at the first read and have no size.
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        return {};
    }
    return file.read(limit);
}

} // namespace zeph
