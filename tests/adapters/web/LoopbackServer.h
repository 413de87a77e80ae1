// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/web/LoopbackConnection.h"

#include <QUrl>

#include <atomic>
#include <functional>
#include <list>
#include <mutex>
#include <thread>

namespace zeph {

/// A server on 127.0.0.1 that does to each client what the test says, on a thread of its own for
/// each. Its end cuts off everyone.
class LoopbackServer {
public:
    using Handler = std::function<void(LoopbackConnection &connection)>;

    /// `context` makes it a server of TLS; null for none.
    explicit LoopbackServer(Handler handler, std::shared_ptr<SSL_CTX> context = nullptr);
    ~LoopbackServer();
    LoopbackServer(const LoopbackServer &) = delete;
    LoopbackServer &operator=(const LoopbackServer &) = delete;

    quint16 port() const { return m_port; }

    /// An address of this server, by `scheme` and `host` if the test needs others.
    QUrl url(const QString &pathAndQuery = QStringLiteral("/"), const QString &scheme = {},
             const QString &host = QStringLiteral("127.0.0.1")) const;

    int connections() const { return m_connections; } ///< so far

private:
    struct Client {
        std::thread thread;
        std::atomic<bool> isDone = false;
        std::atomic<int> socket = -1;
    };

    void listen();
    void serve(Client &client, int socket);
    void reap();

    Handler m_handler;
    std::shared_ptr<SSL_CTX> m_context;
    int m_listener;
    quint16 m_port = 0;
    std::atomic<bool> m_isEnding = false;
    std::atomic<int> m_connections = 0;
    std::mutex m_mutex; // of the sockets that the end shuts down
    std::list<Client> m_clients;
    std::thread m_thread;
};

} // namespace zeph
