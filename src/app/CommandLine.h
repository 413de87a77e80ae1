// SPDX-License-Identifier: MIT
#pragma once

namespace zeph {

/// What the command line asks the program for.
enum class Errand {
    wallpaper, ///< nothing else; the toolkit has options of its own, so others are left to it
    restoreDesktop,
    help,
    version,
};

Errand errandOf(int argumentCount, const char *const *arguments);

/// What `--help` prints.
extern const char *const usage;

} // namespace zeph
