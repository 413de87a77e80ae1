// SPDX-License-Identifier: MIT
#pragma once

#include "app/Restoration.h"

namespace zeph {

/// Where the program keeps what it needs for the way back.
struct RestoredFolders {
    QString data;     ///< its lock tells whether the program runs; nothing is written there
    QString settings; ///< the file of the settings
};

/// Puts back what a run has kept and did not bring back itself, since it was killed or since it
/// ends with that in place: the picture in the X server of the environment, Plasma's wallpapers and
/// the icons of the desktop. Waits for those who take it.
Restoration restoreDesktop(const RestoredFolders &folders);

/// The same for the user of this process, as a program of its own: prints what came of it and
/// answers the exit code.
int runRestoreDesktop(char **arguments);

} // namespace zeph
