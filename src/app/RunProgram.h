// SPDX-License-Identifier: MIT
#pragma once

#include "services/web/Endpoints.h"

#include <chrono>

namespace zeph {

/// What a test of the whole program chooses otherwise.
struct ProgramSettings {
    Endpoints endpoints = {};                                           ///< the web services asked
    std::chrono::milliseconds refreshPeriod = std::chrono::minutes(10); ///< of the web accounts
};

/// Runs the wallpaper until it is told to end: by a signal, or by the end of the session. Where the
/// display goes away the process starts itself anew and waits for it a while. A second start tells
/// the first and ends at once. Answers the exit code. The command line is not looked at.
int runProgram(char **arguments, const ProgramSettings &settings);

} // namespace zeph
