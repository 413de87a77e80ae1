// SPDX-License-Identifier: MIT
#include "adapters/session/wayland/WaylandDisplay.h"

#include "adapters/kernel/PeerProcess.h"
#include "adapters/session/wayland/WaylandSocket.h"

#include <unistd.h>
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

std::optional<qint64> compositorProcess(const QByteArray &display) {
    const int socket = connectToCompositor(display);
    if (socket < 0) {
        return std::nullopt;
    }
    const auto listener = peerProcess(socket);
    close(socket);
    return listener;
}

} // namespace zeph
