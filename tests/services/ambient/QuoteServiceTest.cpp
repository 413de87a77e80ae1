// SPDX-License-Identifier: MIT
#include "services/ambient/QuoteService.h"

#include "adapters/locale/IcuCalendar.h"
#include "services/ambient/BrokenAnswers.h"
#include "services/ambient/Sayings.h"
#include "services/ambient/ServiceFixture.h"
#include "support/DateOf.h"
#include "support/FakeUserDefaults.h"
#include "support/Fixture.h"
#include "support/QtPrinters.h"
#include "support/RequestText.h"

#include <gmock/gmock.h>

#include <set>

using namespace Qt::StringLiterals;

namespace zeph {

void PrintTo(const QuoteInfo &quote, std::ostream *out) {
    *out << quote.text.toStdString() << " - " << quote.author.toStdString();
}

namespace {

const QString cacheKey = u"zeph.quote.cache"_s;
const QuoteInfo seneca{u"He who is brave is free."_s, u"Seneca"_s};
const QuoteInfo bacon{u"Knowledge is power."_s, u"Francis Bacon"_s};

class QuoteServiceTest : public ServiceFixture {
protected:
    QuoteServiceTest() { clock.set(dateOf("2026-11-21T15:15:00+01:00")); }

    QuoteService make() { return {http, endpoints, clock, calendar, defaults, runLoop}; }

    /// Lets both services answer alike.
    void bothAnswer(const FakeHttpClient::Handler &handler) {
        zenQuotes = handler;
        quotable = handler;
        server = [this](const HttpRequest &request) {
            return request.url.path() == u"/random" ? quotable(request) : zenQuotes(request);
        };
    }
    static FakeHttpClient::Handler page(const QByteArray &body, int status = 200) {
        return [body, status](const HttpRequest &) { return HttpResponse{status, {}, body}; };
    }

    FakeHttpClient::Handler zenQuotes;
    FakeHttpClient::Handler quotable;
    IcuCalendar calendar{u"en_US"_s, u"Europe/Berlin"_s};
    FakeUserDefaults defaults;
};

} // namespace

TEST_F(QuoteServiceTest, beginsAWindowAtTheStartOfTheDayUntil0559AndMovesAt0600) {
    const QuoteService service = make();
    const auto window = [&service](const char *iso) {
        return isoOf(service.windowStart(dateOf(iso)));
    };
    EXPECT_EQ(window("2026-11-21T00:00:00+01:00"), "2026-11-20T23:00:00.000Z");
    EXPECT_EQ(window("2026-11-21T05:59:59.999+01:00"), "2026-11-20T23:00:00.000Z");
    EXPECT_EQ(window("2026-11-21T06:00:00+01:00"), "2026-11-21T05:00:00.000Z");
    EXPECT_EQ(window("2026-11-21T11:59:59+01:00"), "2026-11-21T05:00:00.000Z");
    EXPECT_EQ(window("2026-11-21T12:00:00+01:00"), "2026-11-21T11:00:00.000Z");
    EXPECT_EQ(window("2026-11-21T18:00:00+01:00"), "2026-11-21T17:00:00.000Z");
    EXPECT_EQ(window("2026-11-21T23:59:59+01:00"), "2026-11-21T17:00:00.000Z");
}

TEST_F(QuoteServiceTest, countsTheHoursOfADayThatIsLongerOrShorter) {
    const QuoteService service = make();
    const auto window = [&service](const char *iso) {
        return isoOf(service.windowStart(dateOf(iso)));
    };
    // 23 hours: six of them have gone at seven o'clock.
    EXPECT_EQ(window("2026-03-29T06:59:59+02:00"), "2026-03-28T23:00:00.000Z");
    EXPECT_EQ(window("2026-03-29T07:00:00+02:00"), "2026-03-29T05:00:00.000Z");
    // 25 hours: the last one is a window of its own.
    EXPECT_EQ(window("2026-10-25T05:00:00+01:00"), "2026-10-25T04:00:00.000Z");
    EXPECT_EQ(window("2026-10-25T22:59:59+01:00"), "2026-10-25T16:00:00.000Z");
    EXPECT_EQ(window("2026-10-25T23:00:00+01:00"), "2026-10-25T22:00:00.000Z");
}

TEST_F(QuoteServiceTest, asksTheFirstServiceAndStoresItsQuote) {
    bothAnswer(page(fixture("zen-quotes/random.json")));
    QuoteService service = make();
    EXPECT_EQ(service.fetch(), seneca);
    ASSERT_EQ(requestCount(), 1U);
    EXPECT_EQ(requestText(http.requests().front()),
              "GET https://zenquotes.io/api/random\nAccept: application/json");
    EXPECT_EQ(defaults.writes, 0); // not from the thread of the task
    runLoop.drain();
    // 12:00 of the day, in seconds since 2001.
    EXPECT_EQ(defaults.get<QByteArray>(cacheKey),
              QByteArray(R"({"quote":{"author":"Seneca","text":"He who is brave is free."},)"
                         R"("window":816951600})"));
}

TEST_F(QuoteServiceTest, asksTheSecondServiceWhereTheFirstFails) {
    for (const BrokenAnswer &broken : brokenAnswers()) {
        bothAnswer(broken.handler);
        quotable = page(fixture("quotable/random.json"));
        QuoteService service = make();
        const std::size_t before = requestCount();
        EXPECT_EQ(service.fetch(), bacon) << broken.name;
        ASSERT_EQ(requestCount(), before + 2) << broken.name;
        EXPECT_EQ(requestText(http.requests().back()),
                  "GET https://api.quotable.io/random\nAccept: application/json");
    }
    runLoop.drain();
    const auto stored = QuoteService::Stored::decode(*defaults.get<QByteArray>(cacheKey));
    ASSERT_TRUE(stored);
    EXPECT_EQ(stored->quote, bacon);
}

TEST_F(QuoteServiceTest, needsBothKeysOfAQuoteAsText) {
    quotable = page("{}");
    for (const char *body :
         {R"([{"q":"text"}])", R"([{"a":"author"}])", R"([{"q":"text","a":null}])",
          R"([{"q":1,"a":"author"}])", R"({"q":"text","a":"author"})", R"(["text","author"])",
          R"([[],{"q":"text","a":"author"}])"}) {
        bothAnswer(page(body));
        QuoteService service = make();
        EXPECT_EQ(service.fetch(), QuoteService::builtIn(service.windowStart(clock.now()))) << body;
    }
    for (const char *body : {R"({"content":"text"})", R"({"author":"author"})",
                             R"({"content":["text"],"author":"author"})",
                             R"([{"content":"text","author":"author"}])"}) {
        bothAnswer(page(body));
        QuoteService service = make();
        EXPECT_EQ(service.fetch(), QuoteService::builtIn(service.windowStart(clock.now()))) << body;
    }
    EXPECT_EQ(defaults.writes, 0);
}

TEST_F(QuoteServiceTest, takesTheFirstOfSeveralQuotes) {
    bothAnswer(page(R"([{"q":"one","a":"A"},{"q":"two","a":"B"}])"));
    EXPECT_EQ(make().fetch(), (QuoteInfo{u"one"_s, u"A"_s}));
}

TEST_F(QuoteServiceTest, servesAStoredQuoteOfTheWindowWithoutACall) {
    bothAnswer(page(fixture("zen-quotes/random.json")));
    QuoteService service = make();
    service.fetch();
    clock.set(dateOf("2026-11-21T17:59:59+01:00"));
    EXPECT_EQ(service.fetch(), seneca);
    EXPECT_EQ(requestCount(), 1U);
    clock.advance(1);
    EXPECT_EQ(service.fetch(), seneca);
    EXPECT_EQ(requestCount(), 2U);
}

TEST_F(QuoteServiceTest, servesAStoredQuoteOfTheWindowAfterARestart) {
    bothAnswer(page(fixture("zen-quotes/random.json")));
    make().fetch();
    runLoop.drain();
    QuoteService restarted = make();
    EXPECT_EQ(restarted.fetch(), seneca);
    EXPECT_EQ(requestCount(), 1U);
}

TEST_F(QuoteServiceTest, comparesTheWindowExactly) {
    const Date window = make().windowStart(clock.now());
    bothAnswer(page(fixture("zen-quotes/random.json")));
    for (const double beside : {-0.001, 0.001, 21600.0, -21600.0}) {
        defaults.set(cacheKey, QuoteService::Stored{window + beside, bacon}.encode());
        EXPECT_EQ(make().fetch(), seneca) << beside;
    }
    defaults.set(cacheKey, QuoteService::Stored{window, bacon}.encode());
    EXPECT_EQ(make().fetch(), bacon);
}

TEST_F(QuoteServiceTest, servesAnOldQuoteWhileBothServicesFailAndTriesAgain) {
    const Date window = make().windowStart(clock.now());
    const QByteArray old = QuoteService::Stored{window - 10 * 86400.0, bacon}.encode();
    defaults.set(cacheKey, old);
    QuoteService service = make();
    std::size_t asked = 0;
    for (const BrokenAnswer &broken : brokenAnswers()) {
        bothAnswer(broken.handler);
        EXPECT_EQ(service.fetch(), bacon) << broken.name;
        asked += 2;
        EXPECT_EQ(requestCount(), asked) << broken.name;
    }
    runLoop.drain();
    EXPECT_EQ(defaults.get<QByteArray>(cacheKey), old);
    EXPECT_EQ(defaults.writes, 1); // the one of this test
}

TEST_F(QuoteServiceTest, takesTheSayingOfTheWindowWithNothingStoredAndKeepsItNot) {
    bothAnswer(page(fixture("zen-quotes/too-many-requests.json"), 429));
    QuoteService service = make();
    EXPECT_EQ(service.fetch(), QuoteService::builtIn(dateOf("2026-11-21T12:00:00+01:00")));
    EXPECT_EQ(service.fetch(), QuoteService::builtIn(dateOf("2026-11-21T12:00:00+01:00")));
    EXPECT_EQ(requestCount(), 4U);
    runLoop.drain();
    EXPECT_EQ(defaults.writes, 0);
}

TEST_F(QuoteServiceTest, takesAStoredValueThatDoesNotDecodeForNothing) {
    bothAnswer(page("{}", 500));
    const QuoteInfo saying = QuoteService::builtIn(make().windowStart(clock.now()));
    for (const char *bytes :
         {"", "no JSON", "[]", "7", "{}", R"({"window":1})",
          R"({"window":"1","quote":{"text":"t","author":"a"}})",
          R"({"window":true,"quote":{"text":"t","author":"a"}})", R"({"window":1,"quote":"t"})",
          R"({"window":1,"quote":{"text":"t"}})", R"({"window":1,"quote":{"text":"t","author":7}})",
          R"({"quote":{"text":"t","author":"a"}})"}) {
        defaults.set(cacheKey, QByteArray(bytes));
        EXPECT_EQ(make().fetch(), saying) << bytes;
    }
    defaults.set(cacheKey, u"{\"window\":1,\"quote\":{\"text\":\"t\",\"author\":\"a\"}}"_s);
    EXPECT_EQ(make().fetch(), saying); // a text is no data
    defaults.set(cacheKey, QByteArray(R"({"window":1,"quote":{"text":"t","author":"a"}})"));
    EXPECT_EQ(make().fetch(), (QuoteInfo{u"t"_s, u"a"_s}));
}

TEST_F(QuoteServiceTest, readsBackWhatItStores) {
    const QuoteService::Stored stored{Date{978307200.0 + 0.1}, {u"„Ça ira“ \"\\"_s, u"爱"_s}};
    EXPECT_EQ(QuoteService::Stored::decode(stored.encode()), stored);
    EXPECT_NEAR(QuoteService::Stored::decode(stored.encode())->window - stored.window, 0, 1e-6);
}

TEST_F(QuoteServiceTest, hasASayingWhenCancelled) {
    bothAnswer(page(fixture("zen-quotes/random.json")));
    http.cancelAll();
    QuoteService service = make();
    EXPECT_EQ(service.fetch(), QuoteService::builtIn(service.windowStart(clock.now())));
}

TEST(QuoteServiceBuiltIn, stepsOnceInSixHoursOfUniversalTime) {
    EXPECT_EQ(QuoteService::builtIn(Date{0}), saying(0));
    EXPECT_EQ(QuoteService::builtIn(Date{21599.9}), saying(0));
    EXPECT_EQ(QuoteService::builtIn(Date{21600}), saying(1));
    EXPECT_EQ(QuoteService::builtIn(Date{13 * 21600.0}), saying(13));
    EXPECT_EQ(QuoteService::builtIn(Date{14 * 21600.0}), saying(0));
    EXPECT_EQ(QuoteService::builtIn(dateOf("2026-11-21T11:00:00Z")), saying(9));
}

TEST(QuoteServiceBuiltIn, hasASayingBefore1970) {
    EXPECT_EQ(QuoteService::builtIn(Date{-1}), saying(0)); // cut off towards zero
    EXPECT_EQ(QuoteService::builtIn(Date{-21600}), saying(13));
    EXPECT_EQ(QuoteService::builtIn(Date{-2 * 21600.0}), saying(12));
    EXPECT_EQ(QuoteService::builtIn(Date{-14 * 21600.0}), saying(0));
    EXPECT_EQ(QuoteService::builtIn(Date{-1e300}).author.isEmpty(), false);
}

TEST(QuoteServiceBuiltIn, hasFourteenSayingsEachWithAnAuthor) {
    std::set<QString> texts;
    for (std::size_t index = 0; index < sayingCount; ++index) {
        texts.insert(saying(index).text);
        EXPECT_TRUE(saying(index).text.endsWith(u'.')) << index;
        EXPECT_FALSE(saying(index).author.isEmpty()) << index;
    }
    EXPECT_EQ(texts.size(), 14U);
    EXPECT_EQ(saying(4),
              (QuoteInfo{u"It always seems impossible until it's done."_s, u"Nelson Mandela"_s}));
    EXPECT_EQ(saying(13), (QuoteInfo{u"No pressure, no diamonds."_s, u"Thomas Carlyle"_s}));
}

} // namespace zeph
