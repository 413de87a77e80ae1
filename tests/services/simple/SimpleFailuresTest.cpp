// SPDX-License-Identifier: MIT
#include "services/simple/AhrefsService.h"
#include "services/simple/BlueskyService.h"
#include "services/simple/CoinGeckoService.h"
#include "services/simple/CurrencyService.h"
#include "services/simple/GumroadService.h"
#include "services/simple/HackerNewsService.h"
#include "services/simple/NetlifyService.h"
#include "services/simple/PolarService.h"
#include "services/simple/SimpleFixture.h"
#include "services/simple/TrustMRRService.h"
#include "services/simple/VercelService.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

/// Every service that asks for JSON once, before one and the same failing answer.
class SimpleFailures : public Framing {
protected:
    struct Service {
        QString provider;
        std::function<SimpleIntegrationStats()> fetch;
        QString elseError; ///< for an answer that is JSON but not what was asked for
    };

    void answerAll(const std::optional<HttpResponse> &response) { answer = response; }

    /// Each service in turn; `expected` absent stands for its own words.
    void expectEverywhere(const std::optional<QString> &expected) {
        for (const Service &service : services) {
            const std::size_t before = client.requests().size();
            const SimpleIntegrationStats stats = service.fetch();
            EXPECT_EQ(client.requests().size(), before + 1) << qPrintable(service.provider);
            EXPECT_EQ(stats.provider, service.provider);
            EXPECT_EQ(stats.error.value_or(QString()), expected.value_or(service.elseError))
                << qPrintable(service.provider);
            EXPECT_EQ(stats.headline, QString()) << qPrintable(service.provider);
            EXPECT_TRUE(stats.chips.empty()) << qPrintable(service.provider);
            EXPECT_FALSE(stats.updated.has_value()) << qPrintable(service.provider);
            EXPECT_FALSE(stats.id.isNull()) << qPrintable(service.provider);
        }
    }

    std::optional<HttpResponse> answer;
    FakeHttpClient client{[this](const HttpRequest &) -> HttpResponse {
        if (!answer) {
            throw TransportError(u"The network can't be reached."_s);
        }
        return *answer;
    }};
    Endpoints endpoints;
    ManualClock clock;
    TrustMRRService trustMRR{client, endpoints, clock, context};
    AhrefsService ahrefs{client, endpoints, clock, context};
    CoinGeckoService coinGecko{client, endpoints, clock, context};
    HackerNewsService hackerNews{client, endpoints, clock, context};
    BlueskyService bluesky{client, endpoints, clock, context};
    CurrencyService currency{client, endpoints, clock, context};
    VercelService vercel{client, endpoints, clock, context};
    NetlifyService netlify{client, endpoints, clock, context};
    GumroadService gumroad{client, endpoints, clock, context};
    PolarService polar{client, endpoints, clock, context};
    std::vector<Service> services{
        {u"trustmrr"_s, [this] { return trustMRR.fetch(u"k"_s, u"a"_s); },
         u"Unexpected response from TrustMRR."_s},
        {u"ahrefs"_s, [this] { return ahrefs.fetch(u"a.example"_s); },
         u"No domain rating in response"_s},
        {u"coingecko"_s, [this] { return coinGecko.fetch(u"a"_s); }, u"Coin not found"_s},
        {u"hackernews"_s, [this] { return hackerNews.fetch(u"a"_s); }, u"User not found"_s},
        {u"bluesky"_s, [this] { return bluesky.fetch(u"a"_s); }, u"Profile not found"_s},
        {u"currency"_s, [this] { return currency.fetch(u"USD/INR"_s); }, u"No rate for USD/INR"_s},
        {u"vercel"_s, [this] { return vercel.fetch(u"t"_s); }, u"No deployments yet"_s},
        {u"netlify"_s, [this] { return netlify.fetch(u"t"_s); }, u"No sites found"_s},
        {u"gumroad"_s, [this] { return gumroad.fetch(u"t"_s); }, u"Invalid Gumroad token"_s},
        {u"polar"_s, [this] { return polar.fetch(u"t"_s); }, u"No metrics returned"_s},
    };
};

} // namespace

TEST_F(SimpleFailures, tellTheTransportsWords) {
    answerAll(std::nullopt);
    expectEverywhere(u"The network can't be reached."_s);
}

TEST_F(SimpleFailures, tellTheServicesWordsOfA401) {
    answerAll(FakeHttpClient::json(R"({"error":{"message":"Bad key"}})", 401));
    expectEverywhere(u"Bad key"_s);
    answerAll(FakeHttpClient::json(R"({"message":"No way","error":"x"})", 401));
    expectEverywhere(u"No way"_s);
}

TEST_F(SimpleFailures, tellTheStatusOfAnHtml502) {
    answerAll(HttpResponse{502, {{"Content-Type", "text/html"}}, "<html>Bad gateway</html>"});
    expectEverywhere(u"HTTP 502"_s);
}

TEST_F(SimpleFailures, tellThatAnEmptyBodyIsEmpty) {
    answerAll(FakeHttpClient::json(""));
    expectEverywhere(u"The answer could not be read: it is empty."_s);
}

TEST_F(SimpleFailures, tellTheirOwnWordsOfAnAnswerOfAnotherKind) {
    for (const char *body : {"{}", "[]", "null", "7", "\"text\"", "true", "[[]]", "[7]"}) {
        answerAll(FakeHttpClient::json(body));
        expectEverywhere(std::nullopt);
    }
}

TEST_F(SimpleFailures, aNewIdentityComesWithEachFetch) {
    answerAll(FakeHttpClient::json("{}"));
    EXPECT_NE(ahrefs.fetch(u"a.example"_s).id, ahrefs.fetch(u"a.example"_s).id);
}

} // namespace zeph
