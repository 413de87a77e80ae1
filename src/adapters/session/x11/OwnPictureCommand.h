// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/choose/DesktopProgram.h"

#include <QStringList>

namespace zeph {

/// The command by which that desktop program paints its own picture anew; empty for those that know
/// none. These take a new pixmap whenever theirs changes, so that what was kept of it is not out of
/// date.
inline QStringList ownPictureCommand(DesktopProgram program) {
    return program == DesktopProgram::xfdesktop
               ? QStringList{QStringLiteral("xfdesktop"), QStringLiteral("--reload")}
               : QStringList();
}

} // namespace zeph
