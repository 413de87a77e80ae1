// SPDX-License-Identifier: MIT
#include "adapters/kernel/ProcFile.h"

#include <QFile>

namespace zeph {

QByteArray procFileContents(const QString &path) {
    // Far above what thousands of processors, interrupts and links need.
    constexpr qsizetype limit = 4'194'304;
    constexpr qsizetype firstRoom = 65'536;
    QFile file(path);
    // Unbuffered, since files of /proc are made whole at the first read and have no size.
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        return {};
    }
    // Read into what malloc has at hand. Of a reading of the limit at once the toolkit would take
    // twice that from the system each time.
    QByteArray contents(firstRoom, Qt::Uninitialized);
    qsizetype length = 0;
    while (length < limit) {
        const qint64 count = file.read(contents.data() + length, contents.size() - length);
        if (count <= 0) {
            break;
        }
        length += count;
        if (length == contents.size()) {
            contents.resize(2 * length);
        }
    }
    contents.truncate(length);
    return contents;
}

} // namespace zeph
