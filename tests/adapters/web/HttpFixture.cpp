// SPDX-License-Identifier: MIT
#include "adapters/web/HttpFixture.h"

#include <csignal>

namespace zeph {

using namespace Qt::StringLiterals;

HttpFixture::HttpFixture()
    : m_noProxies{{{"http_proxy", std::nullopt},
                   {"https_proxy", std::nullopt},
                   {"HTTPS_PROXY", std::nullopt},
                   {"all_proxy", std::nullopt},
                   {"ALL_PROXY", std::nullopt},
                   {"no_proxy", std::nullopt},
                   {"NO_PROXY", std::nullopt},
                   {"HTTP_PROXY", std::nullopt}}},
      client(m_library, trusting()) {
    std::signal(SIGPIPE, SIG_IGN); // as the program does
}

HttpOptions HttpFixture::trusting() const {
    HttpOptions options;
    options.authoritiesFile = authority.file();
    return options;
}

HttpRequest HttpFixture::request(const QUrl &url, std::chrono::milliseconds timeout) {
    HttpRequest request;
    request.url = url;
    if (!request.url.hasQuery()) {
        request.url.setQuery(u"key=secret"_s);
    }
    request.setHeader("Authorization", "Bearer secret");
    request.setHeader("X-Key", "secret");
    request.timeout = timeout;
    return request;
}

QString HttpFixture::failure(HttpClient &asked, const HttpRequest &request) {
    try {
        const HttpResponse response = asked.send(request);
        ADD_FAILURE() << "answered " << response.status;
        return {};
    } catch (const TransportError &error) {
        const QString said = error.description();
        EXPECT_FALSE(said.contains(u"secret"_s)) << said.toStdString();
        EXPECT_FALSE(said.contains(u'/')) << said.toStdString();
        EXPECT_FALSE(said.contains(u'?')) << said.toStdString();
        EXPECT_TRUE(said.endsWith(u'.') && said.size() < 120) << said.toStdString();
        return said;
    }
}

LoopbackServer::Handler
HttpFixture::answering(std::function<QByteArray(const ReceivedRequest &received)> reply) {
    return [this, reply = std::move(reply)](LoopbackConnection &connection) {
        while (const auto request = connection.readRequest()) {
            {
                const std::scoped_lock lock(m_mutex);
                m_received.push_back(*request);
            }
            if (!connection.write(reply(*request))) {
                return;
            }
        }
    };
}

LoopbackServer::Handler HttpFixture::answering(const QByteArray &bytes) {
    return answering([bytes](const ReceivedRequest & /*received*/) { return bytes; });
}

std::vector<ReceivedRequest> HttpFixture::received() const {
    const std::scoped_lock lock(m_mutex);
    return m_received;
}

} // namespace zeph
