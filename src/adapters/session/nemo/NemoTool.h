// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/nemo/NemoSettings.h"

#include <chrono>

namespace zeph {

/// Nemo's settings by the desktop's tool, for each call of which there is so much patience.
NemoSettings nemoSettings(UserDefaults &defaults, std::chrono::milliseconds patience);

/// Gives them back after a run that was killed. Waits for the tool.
NemoOutcome giveNemoBack(UserDefaults &defaults);

} // namespace zeph
