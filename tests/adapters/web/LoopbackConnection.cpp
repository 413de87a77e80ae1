// SPDX-License-Identifier: MIT
#include "adapters/web/LoopbackConnection.h"

#include <openssl/ssl.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace zeph {

LoopbackConnection::LoopbackConnection(int socket, SSL_CTX *context)
    : m_socket(socket), m_tls(context != nullptr ? SSL_new(context) : nullptr, &SSL_free) {
    if (m_tls) {
        SSL_set_fd(m_tls.get(), socket);
    }
}

LoopbackConnection::~LoopbackConnection() {
    if (m_tls && !m_isReset) {
        SSL_shutdown(m_tls.get());
    }
    ::close(m_socket);
}

bool LoopbackConnection::accept() {
    return !m_tls || SSL_accept(m_tls.get()) == 1;
}

bool LoopbackConnection::secure(SSL_CTX *context) {
    m_tls.reset(SSL_new(context));
    SSL_set_fd(m_tls.get(), m_socket);
    return accept();
}

QByteArray LoopbackConnection::protocol() const {
    const unsigned char *name = nullptr;
    unsigned int length = 0;
    if (m_tls) {
        SSL_get0_alpn_selected(m_tls.get(), &name, &length);
    }
    return {reinterpret_cast<const char *>(name), static_cast<qsizetype>(length)};
}

std::optional<ReceivedRequest> LoopbackConnection::readRequest() {
    const auto firstLine = readLine();
    const QList<QByteArray> words = firstLine.value_or(QByteArray()).split(' ');
    if (words.size() != 3) {
        return std::nullopt;
    }
    ReceivedRequest request{words[0], words[1]};
    for (auto line = readLine(); !line || !line->isEmpty(); line = readLine()) {
        if (!line) {
            return std::nullopt;
        }
        const qsizetype colon = line->indexOf(':');
        request.headers.push_back({line->left(colon), line->mid(colon + 1).trimmed()});
    }
    const qsizetype length = request.header("Content-Length").value_or("0").toLongLong();
    while (m_buffer.size() < length) {
        if (!fill()) {
            return std::nullopt;
        }
    }
    request.body = m_buffer.left(length);
    m_buffer.remove(0, length);
    return request;
}

QByteArray LoopbackConnection::read() {
    if (m_buffer.isEmpty()) {
        fill();
    }
    return std::exchange(m_buffer, QByteArray());
}

bool LoopbackConnection::write(const QByteArray &bytes) {
    for (qsizetype done = 0; done < bytes.size();) {
        const auto rest = static_cast<std::size_t>(bytes.size() - done);
        std::size_t written = 0;
        if (m_tls) {
            if (SSL_write_ex(m_tls.get(), bytes.constData() + done, rest, &written) != 1) {
                return false;
            }
        } else {
            const ssize_t sent = ::send(m_socket, bytes.constData() + done, rest, MSG_NOSIGNAL);
            if (sent < 0) {
                return false;
            }
            written = static_cast<std::size_t>(sent);
        }
        done += static_cast<qsizetype>(written);
    }
    return true;
}

bool LoopbackConnection::writeSlowly(const QByteArray &bytes,
                                     std::chrono::milliseconds pauseOfEach) {
    for (const char byte : bytes) {
        if (!write(QByteArray(1, byte)) || !pause(pauseOfEach)) {
            return false;
        }
    }
    return true;
}

bool LoopbackConnection::pause(std::chrono::milliseconds duration) {
    pollfd watched{m_socket, POLLIN | POLLRDHUP, 0};
    return ::poll(&watched, 1, static_cast<int>(duration.count())) == 0;
}

void LoopbackConnection::waitForEnd() {
    while (!read().isEmpty()) {
    }
}

void LoopbackConnection::waitForAbsence() {
    pollfd watched{m_socket, POLLRDHUP, 0};
    ::poll(&watched, 1, -1);
}

void LoopbackConnection::reset() {
    const linger atOnce{1, 0};
    ::setsockopt(m_socket, SOL_SOCKET, SO_LINGER, &atOnce, sizeof(atOnce));
    m_isReset = true;
}

std::optional<QByteArray> LoopbackConnection::readLine() {
    qsizetype end = -1;
    while ((end = m_buffer.indexOf("\r\n")) < 0) {
        if (!fill()) {
            return std::nullopt;
        }
    }
    const QByteArray line = m_buffer.left(end);
    m_buffer.remove(0, end + 2);
    return line;
}

bool LoopbackConnection::fill() {
    QByteArray piece(16384, Qt::Uninitialized);
    const auto room = static_cast<std::size_t>(piece.size());
    std::size_t count = 0;
    if (m_tls) {
        if (SSL_read_ex(m_tls.get(), piece.data(), room, &count) != 1) {
            return false;
        }
    } else {
        const ssize_t received = ::recv(m_socket, piece.data(), room, 0);
        if (received <= 0) {
            return false;
        }
        count = static_cast<std::size_t>(received);
    }
    m_buffer.append(piece.constData(), static_cast<qsizetype>(count));
    return true;
}

} // namespace zeph
