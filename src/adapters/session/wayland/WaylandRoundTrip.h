// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

struct wl_display;

namespace zeph {

/// How long a compositor may take to answer at the start. One that is well takes a millisecond.
inline constexpr std::chrono::milliseconds compositorPatience{2000};

/// Waits until the compositor has answered all that was asked of it, and delivers its events
/// meanwhile; false when it did not within `patience`, or the connection is broken.
bool makeRoundTrip(wl_display &display, std::chrono::milliseconds patience);

} // namespace zeph
