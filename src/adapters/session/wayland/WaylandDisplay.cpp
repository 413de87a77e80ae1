// SPDX-License-Identifier: MIT
#include "adapters/session/wayland/WaylandDisplay.h"

#include "adapters/session/wayland/WaylandSocket.h"

#include <wayland-client.h>

namespace zeph {

bool compositorAnswers(const QByteArray &display, std::chrono::milliseconds patience) {
    const int socket = connectToCompositor(display);
    // Takes the descriptor over, also where it fails.
    wl_display *const connection = socket < 0 ? nullptr : wl_display_connect_to_fd(socket);
    if (!connection) {
        return false;
    }
    const bool answers = makeRoundTrip(*connection, patience);
    wl_display_disconnect(connection);
    return answers;
}

} // namespace zeph
