// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/identity/ScreenIdentity.h"

#include <QString>

namespace zeph {

/// What a compositor calls an output; each may be empty.
struct OutputNames {
    QString make;
    QString model;
    QString connector;   ///< such as "DP-1"
    QString description; ///< for people, and in no fixed form
};

/// Make, model and serial of a display. They come from the kernel's copy of its EDID below
/// `drmFolder` where the connector leads to one, so that they are those that an X server has of it;
/// else from the compositor. A few small reads of a file system without a disk.
ScreenFacts outputWords(const OutputNames &names, const QString &drmFolder);

} // namespace zeph
