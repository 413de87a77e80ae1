// SPDX-License-Identifier: MIT
#include "services/simple/NetlifyService.h"

#include "services/simple/SimpleFixture.h"

#include "services/web/Json.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

class Netlify : public Simple {
protected:
    NetlifyService service{client, endpoints, clock, context};
};

} // namespace

TEST_F(Netlify, showsTheSiteThatChangedLast) {
    expectJson("https://api.netlify.com/api/v1/sites?per_page=1&sort_by=updated_at",
               recorded(u"netlify/sites.json"_s), {{"Authorization", "Bearer nfp_1"}});
    expectCard(service.fetch(u"nfp_1"_s), u"netlify"_s, u"harbour-notes"_s,
               {{u"checkmark.circle"_s, u"Deployed"_s}});
}

TEST_F(Netlify, aSiteThatWasNeverDeployedReadsUnknown) {
    const SimpleCard expectedCard{u"Netlify"_s, {{u"circle"_s, u"Unknown"_s}}};
    for (const char *body : {"[{}]", R"([{"name":7,"published_deploy":null}])",
                             R"([{"published_deploy":{"state":null}}])"}) {
        EXPECT_EQ(netlifyCard(json::parse(body)), expectedCard) << body;
    }
}

TEST_F(Netlify, findsNoSiteInAnEmptyList) {
    for (const char *body : {"[]", "[null]", "[7]", "{}", R"({"sites":[{}]})"}) {
        EXPECT_THROW(netlifyCard(json::parse(body)), ServiceError) << body;
    }
}

TEST_F(Netlify, tellsTheServicesWordsOfARefusal) {
    expect("https://api.netlify.com/api/v1/sites?per_page=1&sort_by=updated_at",
           {acceptJson(), {"Authorization", "Bearer t"}},
           FakeHttpClient::json(recorded(u"netlify/error-401.json"_s), 401));
    expectFailure(service.fetch(u"t"_s), u"netlify"_s, u"Access Denied"_s);
}

TEST_F(Netlify, refusesAnEmptyToken) {
    expectFailure(service.fetch(u""_s), u"netlify"_s, u"Add a Netlify token."_s);
}

} // namespace zeph
