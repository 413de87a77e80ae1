// SPDX-License-Identifier: MIT
#include "adapters/session/wayland/WaylandSocket.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <iterator>

namespace zeph {

int connectToCompositor(const QByteArray &display) {
    const QByteArray folder = qgetenv("XDG_RUNTIME_DIR");
    const QByteArray path = display.startsWith('/') ? display : folder + '/' + display;
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (display.isEmpty() || !path.startsWith('/') ||
        path.size() >= static_cast<qsizetype>(std::size(address.sun_path))) {
        return -1;
    }
    std::copy(path.begin(), path.end(), std::begin(address.sun_path));
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (socket < 0) {
        return -1;
    }
    // The C interface takes every kind of address through this one pointer type.
    if (connect(socket, reinterpret_cast<sockaddr *>(&address), sizeof address) != 0) {
        close(socket);
        return -1;
    }
    return socket;
}

} // namespace zeph
