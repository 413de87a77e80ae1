// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <memory>

namespace zeph {

class X11Display;

/// How long a program whose display went away waits for it. A compositor that crashed and is
/// started anew is back within a few seconds.
inline constexpr std::chrono::seconds displayReturnPatience{20};

/// A display that was waited for.
struct ReturnedDisplay {
    bool isThere = false;
    /// Its X server, null where there is none. To be kept until there is another connection: one
    /// that has just started would reset itself.
    std::unique_ptr<X11Display> server;
};

/// Blocks until the display of the environment can be reached again: the Wayland compositor where
/// there was one, and then its X server for a moment longer, else the X server alone. Not there
/// at once for a display without a local socket, which can't be waited for. What the environment
/// says of the compositor is brought up to date. A signal that asks for the end ends the process
/// meanwhile, with success. For before there is anything on the screen, and any thread.
ReturnedDisplay waitForLostDisplay(std::chrono::milliseconds patience = displayReturnPatience);

} // namespace zeph
