// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/web/CurlHttpClient.h"
#include "adapters/web/CurlLibrary.h"
#include "adapters/web/LoopbackServer.h"
#include "adapters/web/TestAuthority.h"
#include "support/Environment.h"
#include "support/QtPrinters.h"

#include <gmock/gmock.h>

namespace zeph {

/// The bytes of an answer in HTTP/1.1 that tells its length.
inline QByteArray answer(int status, const QByteArray &body = {},
                         const std::vector<HttpHeader> &headers = {}) {
    QByteArray bytes = "HTTP/1.1 " + QByteArray::number(status) + " Said\r\n";
    for (const HttpHeader &header : headers) {
        bytes += header.name + ": " + header.value + "\r\n";
    }
    return bytes + "Content-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body;
}

inline QByteArray redirect(const QByteArray &location, int status = 302) {
    return answer(status, "not this", {{"Location", location}});
}

/// A client that trusts the test's authority, and no proxy. Every failure is checked for telling
/// nothing of what `request` asks for but the host.
class HttpFixture : public testing::Test {
protected:
    HttpFixture();

    HttpOptions trusting() const;

    /// Asks for something that nobody else may learn of.
    static HttpRequest request(const QUrl &url,
                               std::chrono::milliseconds timeout = std::chrono::seconds(20));

    /// What the client says of a request that brings no answer.
    QString failure(const HttpRequest &request) { return failure(client, request); }
    static QString failure(HttpClient &asked, const HttpRequest &request);

    /// Reads a request, keeps it, and answers it so.
    LoopbackServer::Handler
    answering(std::function<QByteArray(const ReceivedRequest &received)> reply);
    LoopbackServer::Handler answering(const QByteArray &bytes);

    /// What came to the servers made by `answering`.
    std::vector<ReceivedRequest> received() const;

    TestAuthority authority;

private:
    std::array<ScopedVariable, 8> m_noProxies;
    CurlLibrary m_library;
    mutable std::mutex m_mutex;
    std::vector<ReceivedRequest> m_received;

protected:
    const CurlLibrary &library = m_library;
    CurlHttpClient client;
};

} // namespace zeph
