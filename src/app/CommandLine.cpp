// SPDX-License-Identifier: MIT
#include "app/CommandLine.h"

#include <string_view>

namespace zeph {

const char *const usage =
    "Usage: tavi [OPTION]\n"
    "A calm, living desktop wallpaper. Without an option it draws; a second start opens the\n"
    "settings of the first.\n"
    "\n"
    "  --restore-desktop  put the desktop picture back that a killed run left behind, and end\n"
    "  --help             print this, and end\n"
    "  --version          print the version, and end\n";

Errand errandOf(int argumentCount, const char *const *arguments) {
    if (argumentCount != 2) {
        return Errand::wallpaper;
    }
    const std::string_view option(arguments[1]);
    if (option == "--restore-desktop") {
        return Errand::restoreDesktop;
    }
    if (option == "--help" || option == "-h") {
        return Errand::help;
    }
    return option == "--version" ? Errand::version : Errand::wallpaper;
}

} // namespace zeph
