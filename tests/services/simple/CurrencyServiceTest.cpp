// SPDX-License-Identifier: MIT
#include "services/simple/CurrencyService.h"

#include "services/simple/SimpleFixture.h"

#include "services/web/Json.h"

#include <atomic>
#include <thread>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

class Currency : public Simple {
protected:
    void expectRate(const QByteArray &rate = "83.12") {
        expectJson("https://api.frankfurter.dev/v2/rate/USD/INR", "{\"rate\":" + rate + "}");
    }
    static QString text(const QByteArray &rate, const CurrencyPair &pair) {
        return currencyCard(json::parse("{\"rate\":" + rate + "}"), pair).chips.front().text;
    }

    CurrencyService service{client, endpoints, clock, context};
};

using CurrencyThreads = Framing;

} // namespace

TEST_F(Currency, showsTheRate) {
    expectJson("https://api.frankfurter.dev/v2/rate/USD/INR",
               recorded(u"frankfurter/usd-inr.json"_s));
    expectCard(service.fetch(u" usd/inr\n"_s), u"currency"_s, u"USD → INR"_s,
               {{u"arrow.left.arrow.right"_s, u"1 USD = 83.12 INR"_s}});
}

TEST_F(Currency, allSeparatorsWorkAlikeUnderKeysOfTheirOwn) {
    for (const QString &pair : {u"usd/inr"_s, u"USD-INR"_s, u"USD:INR"_s, u"USD INR"_s}) {
        expectRate();
        EXPECT_EQ(service.fetch(pair).headline, u"USD → INR"_s);
    }
    EXPECT_EQ(answered, 4U);
}

TEST_F(Currency, dropsEmptyPartsAndIgnoresFurtherOnes) {
    const CurrencyPair pair{u"USD"_s, u"INR"_s};
    EXPECT_EQ(currencyPair(u"//USD - INR"_s), pair);
    EXPECT_EQ(currencyPair(u"USD/INR/E"_s), pair);
}

TEST_F(Currency, refusesUSDINRAndUSDIN) {
    for (const QString &pair : {u"USDINR"_s, u"USD/IN"_s, u"US/INR"_s, u""_s, u"/"_s, u"USD"_s}) {
        expectFailure(service.fetch(pair), u"currency"_s, u"Enter a pair like USD/INR."_s);
    }
}

TEST_F(Currency, writesARateByItsSize) {
    EXPECT_EQ(text("83.12", {u"USD"_s, u"INR"_s}), u"1 USD = 83.12 INR"_s);
    EXPECT_EQ(text("0.0123", {u"INR"_s, u"USD"_s}), u"1 INR = 0.0123 USD"_s);
    EXPECT_EQ(text("1234.5", {u"BTC"_s, u"USD"_s}), u"1 BTC = 1234 USD"_s);
    EXPECT_EQ(text("100", {u"A"_s, u"B"_s}), u"1 A = 100 B"_s);
    EXPECT_EQ(text("99.999", {u"A"_s, u"B"_s}), u"1 A = 100.00 B"_s);
    EXPECT_EQ(text("1", {u"A"_s, u"B"_s}), u"1 A = 1.00 B"_s);
    EXPECT_EQ(text("0.99999", {u"A"_s, u"B"_s}), u"1 A = 1.0000 B"_s);
}

TEST_F(Currency, aSecondCallWithinTheHourMakesNoRequestAndKeepsUpdated) {
    expectRate();
    const auto first = service.fetch(u"USD/INR"_s);
    clock.advance(3599.9);
    EXPECT_EQ(service.fetch(u"usd/inr "_s), first);
    EXPECT_EQ(answered, 1U);
}

TEST_F(Currency, asksAgainAfterAnHour) {
    expectRate();
    expectRate("84");
    service.fetch(u"USD/INR"_s);
    clock.advance(CurrencyService::ttl);
    const auto second = service.fetch(u"USD/INR"_s);
    EXPECT_EQ(second.chips.front().text, u"1 USD = 84.00 INR"_s);
    EXPECT_EQ(second.updated, clock.now());
}

TEST_F(Currency, asksAgainAfterTheClockWasSetBackFar) {
    expectRate();
    expectRate("84");
    service.fetch(u"USD/INR"_s);
    clock.advance(-2 * CurrencyService::ttl);
    EXPECT_EQ(service.fetch(u"USD/INR"_s).chips.front().text, u"1 USD = 84.00 INR"_s);
}

TEST_F(Currency, keepsPairsApart) {
    expectRate();
    expectJson("https://api.frankfurter.dev/v2/rate/EUR/INR", R"({"rate":90})");
    service.fetch(u"USD/INR"_s);
    EXPECT_EQ(service.fetch(u"EUR/INR"_s).headline, u"EUR → INR"_s);
    EXPECT_EQ(service.fetch(u"USD/INR"_s).headline, u"USD → INR"_s);
}

TEST_F(Currency, keepsNoFailure) {
    expect("https://api.frankfurter.dev/v2/rate/USD/INR", {acceptJson()},
           FakeHttpClient::json(recorded(u"frankfurter/error-404.json"_s), 404));
    expectRate();
    expectFailure(service.fetch(u"USD/INR"_s), u"currency"_s, u"not found"_s);
    EXPECT_EQ(service.fetch(u"USD/INR"_s).error, std::nullopt);
}

TEST_F(Currency, aFailureDoesNotFallBackOnAnOldRate) {
    expectRate();
    expect("https://api.frankfurter.dev/v2/rate/USD/INR", {acceptJson()}, std::nullopt);
    service.fetch(u"USD/INR"_s);
    clock.advance(3600);
    expectFailure(service.fetch(u"USD/INR"_s), u"currency"_s, u"The network can't be reached."_s);
}

TEST_F(Currency, tellsThePairThatHasNoRate) {
    for (const char *body : {"{}", R"({"rate":"1"})", R"({"rate":null})", "[]", "7", "null"}) {
        expectJson("https://api.frankfurter.dev/v2/rate/USD/INR", body);
        expectFailure(service.fetch(u"USD/INR"_s), u"currency"_s, u"No rate for USD/INR"_s);
    }
}

TEST_F(Currency, encodesCodesThatHoldMarks) {
    expectJson("https://api.frankfurter.dev/v2/rate/A%3FB/%E2%82%AC%25%23", R"({"rate":1})");
    EXPECT_EQ(service.fetch(u"a?b/€%#"_s).error, std::nullopt);
}

TEST_F(CurrencyThreads, holdsNothingWhileARequestIsUnderWay) {
    ManualClock clock;
    std::atomic<CurrencyService *> asked = nullptr;
    std::atomic<int> requests = 0;
    // The answer to the outer request asks the same service about another pair, from a thread of
    // its own: a lock held across a request would never be freed.
    class Reentrant : public HttpClient {
    public:
        explicit Reentrant(std::function<HttpResponse(const HttpRequest &)> handler)
            : m_handler(std::move(handler)) {}
        HttpResponse send(const HttpRequest &request) override { return m_handler(request); }
        void cancelAll() override {}

    private:
        std::function<HttpResponse(const HttpRequest &)> m_handler;
    } client([&](const HttpRequest &request) {
        ++requests;
        if (request.url.path().endsWith(u"INR")) {
            std::thread([&] { asked.load()->fetch(u"EUR/USD"_s); }).join();
        }
        return FakeHttpClient::json(R"({"rate":2})");
    });
    CurrencyService service(client, Endpoints(), clock, context);
    asked = &service;
    EXPECT_EQ(service.fetch(u"USD/INR"_s).error, std::nullopt);
    EXPECT_EQ(requests, 2);
    service.fetch(u"EUR/USD"_s);
    EXPECT_EQ(requests, 2);
}

TEST_F(CurrencyThreads, servesManyThreadsAtOnce) {
    ManualClock clock;
    FakeHttpClient client(
        [](const HttpRequest &) { return FakeHttpClient::json(R"({"rate":2})"); });
    CurrencyService service(client, Endpoints(), clock, context);
    std::atomic<int> cards = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int k = 0; k < 50; ++k) {
                cards += service.fetch(k % 2 == 0 ? u"USD/INR"_s : u"EUR/INR"_s).error ? 0 : 1;
            }
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    EXPECT_EQ(cards, 200);
    EXPECT_GE(client.requests().size(), 2U);
    EXPECT_LE(client.requests().size(), 8U); // each thread may find each pair missing once
}

} // namespace zeph
