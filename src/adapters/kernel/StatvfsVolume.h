// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Volume.h"

#include <QString>

struct statvfs;

namespace zeph {

/// The file system that holds a path, after statvfs.
class StatvfsVolume : public Volume {
public:
    explicit StatvfsVolume(const QString &path = QStringLiteral("/"));

    std::optional<VolumeCapacity> capacity() const override;

private:
    QByteArray m_path;
};

/// The folder whose file system is the user's disk: the root of a sandbox lies on none.
QString folderOnTheDisk(bool isInSandbox, const QString &home);

/// The capacity that the system's figures tell: available is what is free for ordinary users.
VolumeCapacity capacityOf(const struct statvfs &status);

} // namespace zeph
