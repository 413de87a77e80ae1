// SPDX-License-Identifier: MIT
#pragma once

#include "support/FakeHttpClient.h"
#include "support/QtPrinters.h"

#include <QFile>

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace zeph {

/// A recorded answer, by its path below the folder of fixtures.
inline QByteArray fixture(const char *path) {
    QFile file(QStringLiteral(ZEPH_FIXTURES "/") + QString::fromLatin1(path));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path;
    return file.readAll();
}

/// What a service that is down answers through the machine in front of it.
inline HttpResponse badGateway() {
    return {502, {{"Content-Type", "text/html"}}, "<html><body>502 Bad Gateway</body></html>"};
}

/// One request as it has to be, and what it gets.
struct Exchange {
    HttpRequest request;
    HttpResponse response = FakeHttpClient::json("{}");
    bool isCutOff = false; ///< no answer at all

    Exchange answering(HttpResponse other) const {
        Exchange changed = *this;
        changed.response = std::move(other);
        return changed;
    }
    Exchange answering(const QByteArray &body, int status = 200) const {
        return answering(FakeHttpClient::json(body, status));
    }
    Exchange cutOff() const {
        Exchange changed = *this;
        changed.isCutOff = true;
        return changed;
    }
};

inline HttpRequest getRequest(const QByteArray &url, std::vector<HttpHeader> headers) {
    HttpRequest request;
    request.url = QUrl::fromEncoded(url, QUrl::StrictMode);
    request.headers = std::move(headers);
    return request;
}

/// Knows one conversation and holds the other side to it: each request to the letter, in this
/// order, none left out and none beyond.
class ContractServer {
public:
    explicit ContractServer(std::vector<Exchange> conversation)
        : m_conversation(std::move(conversation)),
          m_client([this](const HttpRequest &request) { return answer(request); }) {}
    ~ContractServer() {
        for (std::size_t left = m_next; left < m_conversation.size(); ++left) {
            ADD_FAILURE() << "not asked: " << line(m_conversation[left].request);
        }
    }
    ContractServer(const ContractServer &) = delete;
    ContractServer &operator=(const ContractServer &) = delete;

    HttpClient &client() { return m_client; }

private:
    HttpResponse answer(const HttpRequest &request) {
        if (m_next == m_conversation.size()) {
            ADD_FAILURE() << "asked beyond the end: " << line(request);
            throw TransportError(QStringLiteral("nobody is there"));
        }
        const Exchange &exchange = m_conversation[m_next++];
        EXPECT_EQ(line(request), line(exchange.request));
        EXPECT_EQ(headerLines(request), headerLines(exchange.request));
        EXPECT_EQ(request.body.toStdString(), exchange.request.body.toStdString());
        EXPECT_EQ(request.timeout, std::chrono::seconds(60));
        if (exchange.isCutOff) {
            throw TransportError(QStringLiteral("The connection was lost."));
        }
        return exchange.response;
    }

    static std::string line(const HttpRequest &request) {
        return (request.method + ' ' + request.url.toEncoded()).toStdString();
    }
    static std::string headerLines(const HttpRequest &request) {
        QByteArray lines;
        for (const HttpHeader &header : request.headers) {
            lines += header.name + ": " + header.value + '\n';
        }
        return lines.toStdString();
    }

    std::vector<Exchange> m_conversation;
    std::size_t m_next = 0;
    FakeHttpClient m_client;
};

} // namespace zeph
