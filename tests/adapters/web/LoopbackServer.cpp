// SPDX-License-Identifier: MIT
#include "adapters/web/LoopbackServer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <stdexcept>

namespace zeph {

LoopbackServer::LoopbackServer(Handler handler, std::shared_ptr<SSL_CTX> context)
    : m_handler(std::move(handler)),
      m_context(std::move(context)),
      m_listener(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    auto *generic = reinterpret_cast<sockaddr *>(&address);
    socklen_t length = sizeof(address);
    if (::bind(m_listener, generic, length) != 0 || ::listen(m_listener, 128) != 0 ||
        ::getsockname(m_listener, generic, &length) != 0) {
        throw std::runtime_error("no server on the loopback interface");
    }
    m_port = ntohs(address.sin_port);
    m_thread = std::thread([this] { listen(); });
}

LoopbackServer::~LoopbackServer() {
    m_isEnding = true;
    ::shutdown(m_listener, SHUT_RDWR);
    m_thread.join();
    {
        const std::scoped_lock lock(m_mutex);
        for (Client &client : m_clients) {
            if (client.socket >= 0) {
                ::shutdown(client.socket, SHUT_RDWR);
            }
        }
    }
    for (Client &client : m_clients) {
        client.thread.join();
    }
    ::close(m_listener);
}

QUrl LoopbackServer::url(const QString &pathAndQuery, const QString &scheme,
                         const QString &host) const {
    const QString usual = m_context ? QStringLiteral("https") : QStringLiteral("http");
    return QUrl(QStringLiteral("%1://%2:%3%4")
                    .arg(scheme.isEmpty() ? usual : scheme, host)
                    .arg(m_port)
                    .arg(pathAndQuery));
}

void LoopbackServer::listen() {
    while (!m_isEnding) {
        const int socket = ::accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
        if (socket < 0) {
            continue;
        }
        const int atOnce = 1; // or small answers wait for the client's acknowledgement
        ::setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &atOnce, sizeof(atOnce));
        ++m_connections;
        reap();
        Client &client = m_clients.emplace_back();
        client.socket = socket;
        client.thread = std::thread([this, &client, socket] { serve(client, socket); });
    }
}

void LoopbackServer::serve(Client &client, int socket) {
    {
        LoopbackConnection connection(socket, m_context.get());
        if (connection.accept()) {
            m_handler(connection);
        }
        const std::scoped_lock lock(m_mutex);
        client.socket = -1;
    }
    client.isDone = true;
}

void LoopbackServer::reap() {
    for (auto client = m_clients.begin(); client != m_clients.end();) {
        if (client->isDone) {
            client->thread.join();
            client = m_clients.erase(client);
        } else {
            ++client;
        }
    }
}

} // namespace zeph
