// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/nemo/NemoSettings.h"

#include <chrono>

namespace zeph {

/// Nemo's settings by the desktop's tool.
NemoSettings nemoSettings(UserDefaults &defaults);

/// Gives them back in no more than that time; what is not done by then is still kept. Waits for
/// the tool.
NemoOutcome giveNemoBack(UserDefaults &defaults, std::chrono::milliseconds patience);

} // namespace zeph
