// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zeph {

/// What came of putting the desktop's earlier picture back.
enum class Restoration {
    done,
    nothingKept, ///< no killed run has left anything, or the desktop has another picture by now
    isRunning,   ///< the program runs, and needs what it keeps until its end
    noDisplay,
};

/// Puts the picture back that a killed run kept in the X server of the environment. The lock on
/// `dataFolder` tells whether the program runs; nothing is written there. A few round trips.
Restoration restoreDesktop(const QString &dataFolder);

/// The same for the user of this process, as a program of its own: prints what came of it and
/// answers the exit code.
int runRestoreDesktop(char **arguments);

} // namespace zeph
