// SPDX-License-Identifier: MIT
#pragma once

#include "model/SimpleIntegrationStats.h"
#include "services/web/Endpoints.h"
#include "services/web/ServiceError.h"
#include "support/FakeHttpClient.h"
#include "support/ManualClock.h"
#include "support/QtPrinters.h"
#include "wording/FramingFixture.h"

#include <QFile>

namespace zeph {

inline void PrintTo(const IntegrationChip &chip, std::ostream *out) {
    *out << chip.icon.toStdString() << ": " << chip.text.toStdString();
}

/// The bytes of a file below tests/services/fixtures.
inline QByteArray recorded(const QString &name) {
    QFile file(QStringLiteral(ZEPH_FIXTURES "/") + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(name);
    return file.readAll();
}

/// A service with a time of its own, 2026-11-21 15:00 in Berlin, before a client that holds every
/// request to what the test expects.
class Simple : public Framing {
protected:
    using Chips = std::vector<IntegrationChip>;

    struct Exchange {
        QByteArray url;
        std::vector<HttpHeader> headers;
        HttpResponse response;
    };

    static constexpr double begin = 1795269600;

    static HttpResponse html(const QByteArray &body, int status = 200) {
        return {status, {{"Content-Type", "text/html; charset=utf-8"}}, body};
    }
    static HttpHeader acceptJson() { return {"Accept", "application/json"}; }

    /// The next request has to be this one. Without a response it finds no network.
    void expect(const QByteArray &url, const std::vector<HttpHeader> &headers,
                const std::optional<HttpResponse> &response) {
        expected.push_back({url, headers, response.value_or(HttpResponse{})});
    }

    /// A request for JSON with no other header than `more`.
    void expectJson(const QByteArray &url, const QByteArray &body,
                    const std::vector<HttpHeader> &more = {}) {
        std::vector<HttpHeader> headers{acceptJson()};
        headers.insert(headers.end(), more.begin(), more.end());
        expect(url, headers, FakeHttpClient::json(body));
    }

    HttpResponse answer(const HttpRequest &request) {
        const std::size_t index = answered++;
        if (index >= expected.size()) {
            ADD_FAILURE() << "not expected: " << request.url.toEncoded().toStdString();
            return {500, {}, {}};
        }
        const Exchange &exchange = expected[index];
        EXPECT_EQ(request.method, "GET");
        EXPECT_EQ(request.url.toEncoded(), exchange.url);
        EXPECT_EQ(request.headers, exchange.headers);
        EXPECT_EQ(request.body, "");
        EXPECT_EQ(request.timeout, std::chrono::seconds(60));
        if (exchange.response.status == 0) {
            throw TransportError(QStringLiteral("The network can't be reached."));
        }
        return exchange.response;
    }

    void TearDown() override { EXPECT_EQ(answered, expected.size()); }

    /// A record of a complete fetch.
    void expectCard(const SimpleIntegrationStats &stats, const QString &provider,
                    const QString &headline, const Chips &chips) const {
        EXPECT_EQ(stats.error.value_or(QString()), QString());
        EXPECT_FALSE(stats.id.isNull());
        EXPECT_EQ(stats.provider, provider);
        EXPECT_EQ(stats.label, QString());
        EXPECT_EQ(stats.headline, headline);
        EXPECT_EQ(stats.chips, chips);
        EXPECT_EQ(stats.updated, clock.now());
    }

    /// A record of a failure holds nothing but its words.
    static void expectFailure(const SimpleIntegrationStats &stats, const QString &provider,
                              const QString &error) {
        EXPECT_EQ(stats.error.value_or(QStringLiteral("(none)")), error);
        EXPECT_FALSE(stats.id.isNull());
        EXPECT_EQ(stats.provider, provider);
        EXPECT_EQ(stats.headline, QString());
        EXPECT_TRUE(stats.chips.empty());
        EXPECT_FALSE(stats.updated.has_value());
    }

    std::vector<Exchange> expected;
    std::size_t answered = 0;
    ManualClock clock{begin};
    Endpoints endpoints;
    FakeHttpClient client{[this](const HttpRequest &request) { return answer(request); }};
};

} // namespace zeph
