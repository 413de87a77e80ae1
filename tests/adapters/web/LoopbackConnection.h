// SPDX-License-Identifier: MIT
#pragma once

#include "ports/HttpClient.h"

#include <chrono>
#include <memory>
#include <optional>
#include <vector>

typedef struct ssl_st SSL;
typedef struct ssl_ctx_st SSL_CTX;

namespace zeph {

/// What a client sent in HTTP/1.
struct ReceivedRequest {
    QByteArray method;
    QByteArray target;
    std::vector<HttpHeader> headers = {};
    QByteArray body = {};

    std::optional<QByteArray> header(const QByteArray &name) const {
        return HttpResponse{0, headers, {}}.header(name);
    }
};

/// One client of a `LoopbackServer`. Everything blocks, and fails once the client is gone or the
/// server ends.
class LoopbackConnection {
public:
    /// Takes `socket` over.
    LoopbackConnection(int socket, SSL_CTX *context);
    ~LoopbackConnection();
    LoopbackConnection(const LoopbackConnection &) = delete;
    LoopbackConnection &operator=(const LoopbackConnection &) = delete;

    /// The handshake of TLS; true without it.
    bool accept();

    /// From here on in TLS, handshake included.
    bool secure(SSL_CTX *context);

    /// The protocol of the application agreed on in the handshake; empty for none.
    QByteArray protocol() const;

    std::optional<ReceivedRequest> readRequest();
    QByteArray read(); ///< what comes next, empty at the end
    bool write(const QByteArray &bytes);
    bool writeSlowly(const QByteArray &bytes, std::chrono::milliseconds pauseOfEach);
    bool pause(std::chrono::milliseconds duration); ///< false as soon as the client says anything
    void waitForEnd();                              ///< of what the client says, which is read
    void waitForAbsence();                          ///< of the client, of which nothing is read
    void reset(); ///< the end will be an error instead of an orderly close

private:
    std::optional<QByteArray> readLine();
    bool fill();

    int m_socket;
    std::unique_ptr<SSL, void (*)(SSL *)> m_tls;
    QByteArray m_buffer;
    bool m_isReset = false;
};

} // namespace zeph
