// SPDX-License-Identifier: MIT
#include "services/simple/CoinGeckoService.h"

#include "services/simple/SimpleFixture.h"

#include "services/web/Json.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

class CoinGecko : public Simple {
protected:
    static SimpleCard card(const QByteArray &coin) {
        return coinGeckoCard(json::parse("{\"usd-coin\":" + coin + "}"), u"usd-coin"_s);
    }

    CoinGeckoService service{client, endpoints, clock, context};
};

} // namespace

TEST_F(CoinGecko, showsPriceAndChange) {
    expectJson("https://api.coingecko.com/api/v3/simple/"
               "price?ids=bitcoin&vs_currencies=usd&include_24hr_change=true",
               recorded(u"coingecko/bitcoin.json"_s));
    expectCard(service.fetch(u" Bitcoin "_s), u"coingecko"_s, u"Bitcoin"_s,
               {{u"bitcoinsign.circle"_s, u"$67187.34"_s},
                {u"chart.line.uptrend.xyaxis"_s, u"+3.6% today"_s}});
}

TEST_F(CoinGecko, tellsARiseWithAPlusAndAFallWithAMinus) {
    EXPECT_EQ(card(R"({"usd":1,"usd_24h_change":0})").chips[1].text, u"+0.0% today"_s);
    EXPECT_EQ(card(R"({"usd":1,"usd_24h_change":-2.25})").chips[1].text, u"-2.2% today"_s);
    EXPECT_EQ(card(R"({"usd":1,"usd_24h_change":-0.01})").chips[1].text, u"-0.0% today"_s);
}

TEST_F(CoinGecko, leavesAnUnknownChangeOut) {
    const Chips expectedChips{{u"bitcoinsign.circle"_s, u"$1.00"_s}};
    EXPECT_EQ(card(R"({"usd":0.9999})").chips, expectedChips);
    EXPECT_EQ(card(R"({"usd":1,"usd_24h_change":null})").chips, expectedChips);
    EXPECT_EQ(card(R"({"usd":1,"usd_24h_change":"3"})").chips, expectedChips);
    EXPECT_EQ(card(R"({"usd":1})").headline, u"Usd-Coin"_s);
}

TEST_F(CoinGecko, writesOutAHugePrice) {
    EXPECT_EQ(card(R"({"usd":1e300})").chips[0].text.size(), 305);
}

TEST_F(CoinGecko, doesNotFindACoinWithoutAPrice) {
    for (const char *coin : {"{}", "7", "[]", R"({"usd":"1"})", R"({"usd":true})"}) {
        EXPECT_THROW(card(coin), ServiceError) << coin;
    }
    EXPECT_THROW(coinGeckoCard(json::parse(R"({"other":{"usd":1}})"), u"usd-coin"_s), ServiceError);
}

TEST_F(CoinGecko, tellsTheStatusOfARefusalThatHasNoWordsOfItsOwn) {
    expect("https://api.coingecko.com/api/v3/simple/"
           "price?ids=a%2Cb&vs_currencies=usd&include_24hr_change=true",
           {acceptJson()}, FakeHttpClient::json(recorded(u"coingecko/error-429.json"_s), 429));
    expectFailure(service.fetch(u"a,b"_s), u"coingecko"_s, u"HTTP 429"_s);
}

TEST_F(CoinGecko, asksForNoCoinWithoutOne) {
    expectFailure(service.fetch(u" \t"_s), u"coingecko"_s,
                  u"Enter a coin id (e.g. bitcoin, ethereum)."_s);
}

TEST_F(CoinGecko, refusesACoinThatHasNoBytes) {
    expectFailure(service.fetch(QString(QChar(0xD800))), u"coingecko"_s, u"Invalid coin id."_s);
}

} // namespace zeph
