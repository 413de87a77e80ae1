// SPDX-License-Identifier: MIT
#include "adapters/session/wayland/WaylandRoundTrip.h"

#include "adapters/session/wayland/WaylandHandle.h"

#include <poll.h>

#include <cerrno>

namespace zeph {

namespace {

using SteadyClock = std::chrono::steady_clock;

/// False when nothing happened by then.
bool waitForSocket(wl_display &display, short events, SteadyClock::time_point deadline) {
    pollfd socket{wl_display_get_fd(&display), events, 0};
    for (;;) {
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(deadline - SteadyClock::now());
        if (left.count() <= 0) {
            return false;
        }
        const int ready = poll(&socket, 1, static_cast<int>(left.count()));
        if (ready >= 0 || errno != EINTR) {
            return ready > 0;
        }
    }
}

/// Says what is left to say and takes in what the compositor says next.
bool exchangeOnce(wl_display &display, SteadyClock::time_point deadline) {
    if (wl_display_flush(&display) < 0) {
        return errno == EAGAIN && waitForSocket(display, POLLOUT, deadline);
    }
    if (wl_display_prepare_read(&display) != 0) {
        return wl_display_dispatch_pending(&display) >= 0;
    }
    if (!waitForSocket(display, POLLIN, deadline)) {
        wl_display_cancel_read(&display);
        return false;
    }
    return wl_display_read_events(&display) >= 0 && wl_display_dispatch_pending(&display) >= 0;
}

} // namespace

bool makeRoundTrip(wl_display &display, std::chrono::milliseconds patience) {
    bool isAnswered = false;
    static constexpr wl_callback_listener listener{
        [](void *answered, wl_callback * /*callback*/, std::uint32_t /*serial*/) {
            *static_cast<bool *>(answered) = true;
        }};
    const WaylandHandle<wl_callback> callback(wl_display_sync(&display));
    wl_callback_add_listener(callback.get(), &listener, &isAnswered);
    const auto deadline = SteadyClock::now() + patience;
    while (!isAnswered) {
        if (!exchangeOnce(display, deadline)) {
            return false;
        }
    }
    return true;
}

} // namespace zeph
