// SPDX-License-Identifier: MIT
#include "adapters/storage/SmallFile.h"

#include "adapters/kernel/FileDescriptor.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>

namespace zeph {

std::optional<QByteArray> readSmallFile(const QByteArray &path, qint64 most) {
    const FileDescriptor descriptor(
        ::open(path.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status {};
    if (!descriptor.isOpen() || ::fstat(descriptor.get(), &status) != 0 ||
        !S_ISREG(status.st_mode)) {
        return std::nullopt;
    }
    QFile file;
    if (!file.open(descriptor.get(), QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        return std::nullopt;
    }
    return file.read(most);
}

} // namespace zeph
