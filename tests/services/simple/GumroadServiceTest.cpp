// SPDX-License-Identifier: MIT
#include "services/simple/GumroadService.h"

#include "services/simple/SimpleFixture.h"

#include "services/web/Json.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

class Gumroad : public Simple {
protected:
    GumroadService service{client, endpoints, clock, context};
};

} // namespace

TEST_F(Gumroad, showsMoneyAndSalesOfToday) {
    expectJson("https://api.gumroad.com/v2/sales?access_token=tok-1&after=2026-11-21",
               recorded(u"gumroad/sales.json"_s));
    expectCard(service.fetch(u" tok-1\n"_s), u"gumroad"_s, u"Gumroad"_s,
               {{u"banknote"_s, u"$25.5 today"_s}, {u"creditcard"_s, u"3 sales today"_s}});
}

TEST_F(Gumroad, todayIsTheDayOfTheUsersZone) {
    clock.set({begin + 8.5 * 3600}); // 23:30 in Berlin, 22:30 UTC
    expectJson("https://api.gumroad.com/v2/sales?access_token=t&after=2026-11-21",
               R"({"success":true})");
    service.fetch(u"t"_s);
    clock.advance(1800);
    expectJson("https://api.gumroad.com/v2/sales?access_token=t&after=2026-11-22",
               R"({"success":true})");
    service.fetch(u"t"_s);
}

TEST_F(Gumroad, encodesTheToken) {
    expectJson("https://api.gumroad.com/v2/sales?access_token=a%26b%2Bc%3D&after=2026-11-21",
               R"({"success":true})");
    EXPECT_EQ(service.fetch(u"a&b+c="_s).error, std::nullopt);
}

TEST_F(Gumroad, asksForNothingWithoutAToken) {
    for (const QString &token : {u""_s, u" \n"_s, QString(QChar(0xD800))}) {
        expectFailure(service.fetch(token), u"gumroad"_s, u"Add a Gumroad access token."_s);
    }
}

TEST_F(Gumroad, aDayWithoutSalesIsNoFailure) {
    const Chips expectedChips{{u"banknote"_s, u"$0 today"_s},
                              {u"creditcard"_s, u"0 sales today"_s}};
    for (const char *body : {R"({"success":true})", R"({"success":true,"sales":[]})",
                             R"({"success":true,"sales":{"a":1}})"}) {
        EXPECT_EQ(gumroadCard(json::parse(body), context).chips, expectedChips) << body;
    }
}

TEST_F(Gumroad, aSaleWithoutAWholePriceCountsAsNothing) {
    const auto card = gumroadCard(
        json::parse(
            R"({"success":true,"sales":[{"price":100},{"price":"5"},{"price":1.5},7,{},{"price":-30}]})"),
        context);
    EXPECT_EQ(card.chips[0].text, u"$0.7 today"_s);
    EXPECT_EQ(card.chips[1].text, u"6 sales today"_s);
}

TEST_F(Gumroad, aSumBeyondAllNumbersEndsAtTheLimit) {
    const auto card = gumroadCard(
        json::parse(
            R"({"success":true,"sales":[{"price":9223372036854775807},{"price":9223372036854775807}]})"),
        context);
    EXPECT_EQ(card.chips[0].text, u"$92,233,720,368,547,760 today"_s);
}

TEST_F(Gumroad, needsATrueSuccess) {
    for (const char *body :
         {"{}", R"({"success":false})", R"({"success":1})", R"({"success":"true"})", "[]"}) {
        EXPECT_THROW(gumroadCard(json::parse(body), context), ServiceError) << body;
    }
}

TEST_F(Gumroad, tellsTheServicesWordsOfARefusal) {
    expect("https://api.gumroad.com/v2/sales?access_token=t&after=2026-11-21", {acceptJson()},
           FakeHttpClient::json(recorded(u"gumroad/error-401.json"_s), 401));
    expectFailure(service.fetch(u"t"_s), u"gumroad"_s, u"The access token is invalid."_s);
}

} // namespace zeph
