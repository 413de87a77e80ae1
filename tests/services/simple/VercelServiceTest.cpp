// SPDX-License-Identifier: MIT
#include "services/simple/VercelService.h"

#include "services/simple/SimpleFixture.h"

#include "services/web/Json.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

class Vercel : public Simple {
protected:
    static IntegrationChip chip(const QByteArray &deployment) {
        return vercelCard(json::parse("{\"deployments\":[" + deployment + "]}")).chips.front();
    }

    VercelService service{client, endpoints, clock, context};
};

} // namespace

TEST_F(Vercel, showsTheLastDeployment) {
    expectJson("https://api.vercel.com/v6/deployments?limit=1",
               recorded(u"vercel/deployments.json"_s), {{"Authorization", "Bearer vc 1"}});
    expectCard(service.fetch(u"vc 1"_s), u"vercel"_s, u"harbour-notes"_s,
               {{u"checkmark.circle"_s, u"Deployed"_s}});
}

TEST_F(Vercel, aDeploymentWithReadyStateOnlyGivesThat) {
    EXPECT_EQ(chip(R"({"readyState":"QUEUED"})"), (IntegrationChip{u"clock"_s, u"Queued"_s}));
    EXPECT_EQ(chip(R"({"state":7,"readyState":"error"})"),
              (IntegrationChip{u"xmark.circle"_s, u"Build failed"_s}));
    EXPECT_EQ(chip(R"({"state":"building","readyState":"READY"})").text, u"Building…"_s);
}

TEST_F(Vercel, anUnknownStateReadsInItsOwnWords) {
    EXPECT_EQ(chip(R"({"state":"PAUSED"})"), (IntegrationChip{u"circle"_s, u"Paused"_s}));
}

TEST_F(Vercel, aMissingStateReadsUnknown) {
    EXPECT_EQ(chip("{}"), (IntegrationChip{u"circle"_s, u"Unknown"_s}));
    EXPECT_EQ(chip(R"({"state":""})").text, u"Unknown"_s);
    EXPECT_EQ(vercelCard(json::parse(R"({"deployments":[{"name":null}]})")).headline, u"Vercel"_s);
}

TEST_F(Vercel, findsNoDeploymentInAnEmptyList) {
    for (const char *body : {"{}", R"({"deployments":[]})", R"({"deployments":[null]})",
                             R"({"deployments":{"a":{}}})", "[{}]"}) {
        EXPECT_THROW(vercelCard(json::parse(body)), ServiceError) << body;
    }
}

TEST_F(Vercel, tellsTheServicesWordsOfARefusal) {
    expect("https://api.vercel.com/v6/deployments?limit=1",
           {acceptJson(), {"Authorization", "Bearer t"}},
           FakeHttpClient::json(recorded(u"vercel/error-403.json"_s), 403));
    expectFailure(service.fetch(u"t"_s), u"vercel"_s, u"Not authorized"_s);
}

TEST_F(Vercel, refusesAnEmptyToken) {
    expectFailure(service.fetch(u""_s), u"vercel"_s, u"Add a Vercel token."_s);
}

} // namespace zeph
