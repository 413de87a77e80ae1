// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstddef>
#include <cstring>

namespace zeph {

/// Keeps the number of an X server that is gone from the servers of other tests, to whose display
/// the program under test would come back. Whoever connects is refused, as where there is none.
class HeldDisplay {
public:
    /// `display` as in DISPLAY, such as ":93".
    explicit HeldDisplay(const QByteArray &display) {
        const QByteArray name = QByteArray(1, '\0') + "/tmp/.X11-unix/X" + display.mid(1);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::memcpy(&address.sun_path, name.constData(), static_cast<std::size_t>(name.size()));
        const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path)) +
                            static_cast<socklen_t>(name.size());
        // The C interface takes every kind of address through this one pointer type.
        ::bind(m_socket, reinterpret_cast<const sockaddr *>(&address), length);
    }
    ~HeldDisplay() { ::close(m_socket); }
    HeldDisplay(const HeldDisplay &) = delete;
    HeldDisplay &operator=(const HeldDisplay &) = delete;

private:
    int m_socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
};

} // namespace zeph
