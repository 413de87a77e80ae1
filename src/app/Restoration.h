// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zeph {

class DesktopShell;
class UserDefaults;

/// What came of bringing one thing back that an earlier run has kept.
enum class Restored {
    done,
    notSaved,    ///< it is back, and is kept on, as the settings could not be written
    nothingKept, ///< no run has left anything, or the user has chosen something else by now
    refused,
    unreachable, ///< nobody is there who would take it
    elsewhere,   ///< it is another desktop's, which alone can take it
};

/// What came of putting the desktop back.
struct Restoration {
    bool isRunning = false; ///< the program runs, and needs what it keeps until its end
    Restored picture = Restored::nothingKept;    ///< of the X display
    Restored wallpapers = Restored::nothingKept; ///< of Plasma
    Restored icons = Restored::nothingKept;
    Restored fileManager = Restored::nothingKept; ///< the settings of Nemo
};

/// What is printed of it: one line, for people. What is still kept for this desktop makes it a
/// failure.
struct RestorationWords {
    QString line;
    bool isFailure = false;

    bool operator==(const RestorationWords &) const = default;
};
RestorationWords restorationWords(const Restoration &restoration);

/// Has the desktop show its icons as it did before they were hidden. Takes as long as the desktop's
/// tools do.
Restored restoreIcons(DesktopShell &shell, UserDefaults &defaults);

} // namespace zeph
