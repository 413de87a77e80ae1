// SPDX-License-Identifier: MIT
#include "services/simple/TrustMRRService.h"

#include "services/simple/SimpleFixture.h"

#include "services/web/Json.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

class TrustMRR : public Simple {
protected:
    SimpleCard card(const QByteArray &data) {
        return trustMRRCard(json::parse("{\"data\":" + data + "}"), u"acme"_s, context);
    }

    TrustMRRService service{client, endpoints, clock, context};
    std::vector<HttpHeader> authorization{{"Authorization", "Bearer key"}};
};

} // namespace

TEST_F(TrustMRR, showsRevenueCustomersAndRank) {
    expectJson("https://trustmrr.com/api/v1/startups/harbour-notes",
               recorded(u"trustmrr/startup.json"_s), authorization);
    expectCard(service.fetch(u"key"_s, u" harbour-notes\n"_s), u"trustmrr"_s, u"Harbour Notes"_s,
               {{u"repeat"_s, u"$3,987.46 MRR"_s},
                {u"banknote"_s, u"$1.3M all-time"_s},
                {u"person.2"_s, u"212 customers"_s},
                {u"rosette"_s, u"Rank #481"_s}});
}

TEST_F(TrustMRR, aStartupWithoutFiguresIsShownAsConnected) {
    expectJson("https://trustmrr.com/api/v1/startups/quiet-quay",
               recorded(u"trustmrr/startup-bare.json"_s), authorization);
    expectCard(service.fetch(u"key"_s, u"quiet-quay"_s), u"trustmrr"_s, u"Quiet Quay"_s,
               {{u"building.2"_s, u"Connected · Quiet Quay"_s}});
}

TEST_F(TrustMRR, takesTheSlugForAMissingName) {
    EXPECT_EQ(card(R"({"name":7})").headline, u"acme"_s);
    EXPECT_EQ(card("{}").chips.front().text, u"Connected · acme"_s);
}

TEST_F(TrustMRR, showsSubscriptionsWithoutCustomers) {
    const Chips expectedChips{{u"person.2"_s, u"198 active subs"_s}};
    EXPECT_EQ(card(R"({"customers":0,"activeSubscriptions":198.9})").chips, expectedChips);
    EXPECT_EQ(card(R"({"customers":"9","activeSubscriptions":198})").chips, expectedChips);
}

TEST_F(TrustMRR, showsNoConnectionBesideAnyFigure) {
    const Chips rank{{u"rosette"_s, u"Rank #3"_s}};
    EXPECT_EQ(card(R"({"rank":3.9})").chips, rank);
    const Chips zero{{u"repeat"_s, u"$0 MRR"_s}};
    EXPECT_EQ(card(R"({"revenue":{"mrr":0}})").chips, zero);
}

TEST_F(TrustMRR, passesOverFiguresThatAreNone) {
    const Chips connected{{u"building.2"_s, u"Connected · acme"_s}};
    EXPECT_EQ(card(R"({"revenue":{"mrr":"5","total":true},"customers":-1,"rank":"2"})").chips,
              connected);
    EXPECT_EQ(card(R"({"revenue":[1],"customers":1e300,"rank":1e300})").chips, connected);
    EXPECT_EQ(card(R"({"revenue":{"mrr":1e300,"total":-1e300}})").chips, connected);
}

TEST_F(TrustMRR, needsTheData) {
    for (const char *body : {"{}", R"({"data":[]})", R"({"data":null})", "[]", "7"}) {
        EXPECT_THROW(trustMRRCard(json::parse(body), u"a"_s, context), ServiceError) << body;
    }
}

TEST_F(TrustMRR, asksForNoStartupWithoutASlug) {
    expectFailure(service.fetch(u"key"_s, u" "_s), u"trustmrr"_s,
                  u"Add a startup slug, the last part of its page on trustmrr.com (e.g. acme)."_s);
}

TEST_F(TrustMRR, keepsASlugInItsSegment) {
    expectJson("https://trustmrr.com/api/v1/startups/a%2Fb%20c", R"({"data":{}})", authorization);
    EXPECT_EQ(service.fetch(u"key"_s, u"a/b c"_s).headline, u"a/b c"_s);
}

TEST_F(TrustMRR, aSlugThatCantBeEncodedIsAskedForAsItIs) {
    const QString slug(QChar(0xD800));
    expect("https://trustmrr.com/api/v1/startups/%ED%A0%80", {acceptJson(), authorization.front()},
           FakeHttpClient::json("{}", 404));
    expectFailure(service.fetch(u"key"_s, slug), u"trustmrr"_s, u"HTTP 404"_s);
}

TEST_F(TrustMRR, tellsTheServicesWordsOfARefusal) {
    expect("https://trustmrr.com/api/v1/startups/acme", {acceptJson(), authorization.front()},
           FakeHttpClient::json(recorded(u"trustmrr/error-401.json"_s), 401));
    expectFailure(service.fetch(u"key"_s, u"acme"_s), u"trustmrr"_s, u"Invalid API key"_s);
}

} // namespace zeph
