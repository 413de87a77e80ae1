// SPDX-License-Identifier: MIT
#include "adapters/kernel/PeerProcess.h"

#include <sys/socket.h>

namespace zeph {

std::optional<qint64> peerProcess(int socket) {
    ucred peer{};
    socklen_t length = sizeof peer;
    const bool isTold = getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &length) == 0;
    return isTold && peer.pid > 0 ? std::optional(qint64{peer.pid}) : std::nullopt;
}

} // namespace zeph
