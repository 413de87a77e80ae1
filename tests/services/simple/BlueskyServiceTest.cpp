// SPDX-License-Identifier: MIT
#include "services/simple/BlueskyService.h"

#include "services/simple/SimpleFixture.h"

#include "services/web/Json.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

class Bluesky : public Simple {
protected:
    BlueskyService service{client, endpoints, clock, context};
};

constexpr auto url =
    "https://public.api.bsky.app/xrpc/app.bsky.actor.getProfile?actor=ada.bsky.social";

} // namespace

TEST_F(Bluesky, showsFollowersFollowingAndPosts) {
    expectJson(url, recorded(u"bluesky/profile.json"_s));
    expectCard(service.fetch(u"ada.bsky.social"_s), u"bluesky"_s, u"@ada.bsky.social"_s,
               {{u"person.2"_s, u"1,204 followers"_s},
                {u"person.badge.plus"_s, u"311 following"_s},
                {u"bubble.left"_s, u"102K posts"_s}});
}

TEST_F(Bluesky, aHandleWithoutADotGetsTheDefaultSuffix) {
    EXPECT_EQ(blueskyHandle(u"ada"_s), u"ada.bsky.social"_s);
    EXPECT_EQ(blueskyHandle(u"ada.example"_s), u"ada.example"_s);
}

TEST_F(Bluesky, dropsALeadingAtAndCapitalsFromAnyHandle) {
    EXPECT_EQ(blueskyHandle(u" @Ada\n"_s), u"ada.bsky.social"_s);
    EXPECT_EQ(blueskyHandle(u"@ADA.Example"_s), u"ada.example"_s);
    EXPECT_EQ(blueskyHandle(u"@@ada.example"_s), u"@ada.example"_s);
}

TEST_F(Bluesky, asksForNoProfileWithoutAHandle) {
    for (const QString &input : {u""_s, u" \n"_s, u"@"_s}) {
        expectFailure(service.fetch(input), u"bluesky"_s,
                      u"Enter a Bluesky handle (e.g. ada.bsky.social)."_s);
    }
}

TEST_F(Bluesky, refusesAHandleThatHasNoBytes) {
    expectFailure(service.fetch(QString(QChar(0xDC00))), u"bluesky"_s, u"Invalid handle."_s);
}

TEST_F(Bluesky, tellsTheServicesWordsOfAnUnknownProfile) {
    expect(url, {acceptJson()}, FakeHttpClient::json(recorded(u"bluesky/error-400.json"_s), 400));
    expectFailure(service.fetch(u"ada"_s), u"bluesky"_s, u"Profile not found"_s);
}

TEST_F(Bluesky, aMissingOrOddNumberCountsAsNone) {
    const auto card = blueskyCard(
        json::parse(R"({"did":null,"followersCount":"7","followsCount":2.5,"postsCount":1e300})"),
        u"a.b"_s, context);
    const Chips expectedChips{{u"person.2"_s, u"0 followers"_s},
                              {u"person.badge.plus"_s, u"0 following"_s},
                              {u"bubble.left"_s, u"0 posts"_s}};
    EXPECT_EQ(card.chips, expectedChips);
}

} // namespace zeph
