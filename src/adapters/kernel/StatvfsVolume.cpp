// SPDX-License-Identifier: MIT
#include "adapters/kernel/StatvfsVolume.h"

#include <QFile>

#include <sys/statvfs.h>

#include <limits>

namespace zeph {

namespace {

/// Absent when the product is more than a file system can hold.
std::optional<qint64> bytes(quint64 blocks, quint64 blockSize) {
    constexpr auto limit = static_cast<quint64>(std::numeric_limits<qint64>::max());
    if (blockSize != 0 && blocks > limit / blockSize) {
        return std::nullopt;
    }
    return static_cast<qint64>(blocks * blockSize);
}

} // namespace

StatvfsVolume::StatvfsVolume(const QString &path) : m_path(QFile::encodeName(path)) {}

std::optional<VolumeCapacity> StatvfsVolume::capacity() const {
    struct statvfs status {};
    if (::statvfs(m_path.constData(), &status) != 0) {
        return std::nullopt;
    }
    return capacityOf(status);
}

VolumeCapacity capacityOf(const struct statvfs &status) {
    return {bytes(status.f_blocks, status.f_frsize), bytes(status.f_bavail, status.f_frsize)};
}

QString folderOnTheDisk(bool isInSandbox, const QString &home) {
    return isInSandbox ? home : QStringLiteral("/");
}

} // namespace zeph
