// SPDX-License-Identifier: MIT
#include "linux/http/FullBacklog.h"

#include <QFile>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <stdexcept>

namespace zeph {

using namespace Qt::StringLiterals;

FullBacklog::FullBacklog() : m_listener(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    auto *generic = reinterpret_cast<sockaddr *>(&address);
    socklen_t length = sizeof(address);
    if (::bind(m_listener, generic, length) != 0 || ::listen(m_listener, 0) != 0 ||
        ::getsockname(m_listener, generic, &length) != 0) {
        throw std::runtime_error("no server on the loopback interface");
    }
    m_port = ntohs(address.sin_port);
    constexpr int plenty = 8; // a backlog of 0 has room for one or two
    for (int filler = 0; filler < plenty; ++filler) {
        const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
        ::connect(socket, generic, length);
        m_fillers.push_back(socket);
    }
}

FullBacklog::~FullBacklog() {
    for (const int socket : m_fillers) {
        ::close(socket);
    }
    ::close(m_listener);
}

QUrl FullBacklog::url() const {
    return QUrl(u"http://127.0.0.1:%1/secret"_s.arg(m_port));
}

int FullBacklog::hanging() const {
    QFile table(u"/proc/self/net/tcp"_s);
    table.open(QIODevice::ReadOnly);
    const QByteArray remote = "0100007F:" + QByteArray::number(m_port, 16).toUpper();
    constexpr int remoteColumn = 2;
    constexpr int stateColumn = 3;
    int count = 0;
    for (const QByteArray &line : table.readAll().split('\n')) {
        const QList<QByteArray> columns = line.simplified().split(' ');
        if (columns.size() > stateColumn && columns[remoteColumn] == remote &&
            columns[stateColumn] == "02") {
            ++count;
        }
    }
    return count;
}

} // namespace zeph
