// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Volume.h"

#include <QString>

namespace zeph {

/// The file system that holds a path, after statvfs.
class StatvfsVolume : public Volume {
public:
    explicit StatvfsVolume(const QString &path = QStringLiteral("/"));

    std::optional<VolumeCapacity> capacity() const override;

private:
    QByteArray m_path;
};

} // namespace zeph
