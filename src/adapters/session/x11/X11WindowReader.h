// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/apps/ApplicationIndex.h"
#include "adapters/session/x11/X11Connection.h"

namespace zeph {

/// What a window says of itself.
struct WindowFacts {
    ApplicationHints hints;
    bool isDesktop = false; ///< the desktop itself, not an application
    bool isOurs = false;    ///< bears our name
};

/// Asks for everything that `windowFacts` needs, without waiting.
std::vector<unsigned> requestWindowFacts(X11Connection &connection, xcb_window_t window);

/// Makes sense of the replies to those requests.
WindowFacts windowFacts(const X11Connection &connection, const X11Connection::Replies &replies);

} // namespace zeph
