// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/loss/DisplaySocket.h"

#include <chrono>
#include <functional>

namespace zeph {

/// Looks whether the display answers, and takes no longer than it is told.
using DisplayLook = std::function<bool(std::chrono::milliseconds)>;

/// How long a wait for a display that went away lasts until the next look, if its socket is not
/// made anew before: a server makes its socket a moment before it listens to it, so that one look
/// at it can come too early. `sinceNews` is the time since the socket was made.
std::chrono::milliseconds restBeforeNextLook(std::chrono::milliseconds sinceNews,
                                             std::chrono::milliseconds left);

/// Blocks until the display behind `socket` answers, for `patience` at most; false when it did not,
/// or when the folder of its socket is gone, as it is after the end of a session. For before there
/// is anything on the screen.
bool waitForDisplay(const DisplaySocket &socket, const DisplayLook &look,
                    std::chrono::milliseconds patience);

} // namespace zeph
