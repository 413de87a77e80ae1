// SPDX-License-Identifier: MIT
#include "adapters/session/sway/SwaySocket.h"

#include "adapters/kernel/FileDescriptor.h"
#include "adapters/kernel/PeerProcess.h"

#include <QFile>
#include <QRegularExpression>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

using namespace Qt::StringLiterals;

namespace zeph {

QString swaySocketOf(const QString &former, qint64 process) {
    static const QRegularExpression form(uR"(^(.*/sway-ipc\.\d+\.)\d+\.sock$)"_s);
    const QRegularExpressionMatch match = form.match(former);
    return match.hasMatch() ? match.captured(1) + QString::number(process) + u".sock"_s : former;
}

int connectToSway(const QString &path) {
    const QByteArray name = QFile::encodeName(path);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (name.size() >= static_cast<qsizetype>(sizeof address.sun_path)) {
        errno = ENAMETOOLONG;
        return -1;
    }
    std::memcpy(&address.sun_path, name.constData(), static_cast<std::size_t>(name.size()));
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    // The C interface takes every kind of address through this one pointer type.
    const auto *generic = reinterpret_cast<const sockaddr *>(&address);
    if (socket >= 0 && ::connect(socket, generic, sizeof address) != 0) {
        const int reason = errno;
        ::close(socket);
        errno = reason;
        return -1;
    }
    return socket;
}

bool isSwayOf(const QString &path, std::optional<qint64> compositor) {
    const FileDescriptor socket(connectToSway(path));
    if (!socket.isOpen()) {
        return errno == EAGAIN; // it is there, and has too many callers to answer now
    }
    const auto sway = peerProcess(socket.get());
    return !sway || !compositor || *sway == *compositor;
}

} // namespace zeph
