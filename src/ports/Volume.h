// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Port.h"

#include <QtGlobal>

#include <optional>

namespace zeph {

/// Capacity in bytes; either value can be missing by itself.
struct VolumeCapacity {
    std::optional<qint64> totalBytes;
    std::optional<qint64> availableBytes; ///< for an ordinary user
};

/// The system volume.
class Volume : public Port {
public:
    virtual std::optional<VolumeCapacity> capacity() const = 0;
};

} // namespace zeph
