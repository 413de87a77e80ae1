// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/places/GlobeOutline.h"

#include <QFile>

namespace zeph {

/// The outlines that the program is delivered with.
inline const GlobeOutlines &outlinesFile() {
    static const GlobeOutlines outlines = [] {
        QFile file(QStringLiteral(ZEPH_OUTLINES));
        return file.open(QIODevice::ReadOnly) ? parseOutlines(file.readAll()) : GlobeOutlines();
    }();
    return outlines;
}

} // namespace zeph
