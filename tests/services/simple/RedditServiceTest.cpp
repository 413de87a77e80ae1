// SPDX-License-Identifier: MIT
#include "services/simple/RedditService.h"

#include "services/simple/SimpleFixture.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

class Reddit : public Simple {
protected:
    void expectPage(const QByteArray &url, const std::optional<HttpResponse> &response) {
        expect(
            url,
            {{"User-Agent", "Mozilla/5.0 (Macintosh; Intel Mac OS X 10_15_7) AppleWebKit/605.1.15 "
                            "(KHTML, like Gecko) Version/17.4 Safari/605.1.15"},
             {"Accept", "text/html,application/xhtml+xml"}},
            response);
    }
    void expectOld(const std::optional<HttpResponse> &response) {
        expectPage("https://old.reddit.com/user/brindle", response);
    }
    void expectNew(const std::optional<HttpResponse> &response) {
        expectPage("https://www.reddit.com/user/brindle", response);
    }

    RedditService service{client, endpoints, clock, context};
};

} // namespace

TEST_F(Reddit, theOldSiteIsEnoughWhenItTellsBoth) {
    expectOld(html(recorded(u"reddit/old-profile-followers.html"_s)));
    expectCard(service.fetch(u"brindle"_s), u"reddit"_s, u"u/brindle"_s,
               {{u"flame"_s, u"15,467 karma"_s}, {u"person.2"_s, u"1,204 followers"_s}});
}

TEST_F(Reddit, anOldPageWithKarmaButNoFollowersLeadsToTheSecondRequest) {
    expectOld(html(recorded(u"reddit/old-profile.html"_s)));
    expectNew(html(recorded(u"reddit/profile.html"_s)));
    expectCard(service.fetch(u"/u/@brindle"_s), u"reddit"_s, u"u/brindle"_s,
               {{u"flame"_s, u"15,467 karma"_s}, {u"person.2"_s, u"312 followers"_s}});
}

TEST_F(Reddit, anOldPageThatTellsNothingLeadsToTheSecondRequest) {
    expectOld(html("<html>7 followers</html>"));
    expectNew(html(recorded(u"reddit/profile.html"_s)));
    expectCard(service.fetch(u"brindle"_s), u"reddit"_s, u"u/brindle"_s,
               {{u"flame"_s, u"15,470 karma"_s}, {u"person.2"_s, u"7 followers"_s}});
}

TEST_F(Reddit, karmaOfNoneAndNoFollowersAfterBothPagesIsAFailure) {
    expectOld(html("<span class=\"karma\">0</span>"));
    expectNew(html("<html></html>"));
    expectFailure(service.fetch(u"brindle"_s), u"reddit"_s, u"Couldn't read that profile"_s);
}

TEST_F(Reddit, aFailureOfTheOldSiteEndsTheFetch) {
    expectOld(std::nullopt);
    expectFailure(service.fetch(u"brindle"_s), u"reddit"_s, u"The network can't be reached."_s);
    expectOld(html(R"({"message":"Too Many Requests"})", 429));
    expectFailure(service.fetch(u"brindle"_s), u"reddit"_s, u"HTTP 429"_s);
    expectOld(html("<html>Bad gateway</html>", 502));
    expectFailure(service.fetch(u"brindle"_s), u"reddit"_s, u"HTTP 502"_s);
}

TEST_F(Reddit, aFailureOfTheMainSiteLeavesWhatIsKnown) {
    expectOld(html(recorded(u"reddit/old-profile.html"_s)));
    expectNew(std::nullopt);
    expectCard(service.fetch(u"brindle"_s), u"reddit"_s, u"u/brindle"_s,
               {{u"flame"_s, u"15,467 karma"_s}});
}

TEST_F(Reddit, followersOfNoneShowAfterAFailureOfTheMainSite) {
    expectOld(html("0 followers"));
    expectNew(html("", 403));
    expectCard(service.fetch(u"brindle"_s), u"reddit"_s, u"u/brindle"_s,
               {{u"person.2"_s, u"0 followers"_s}});
}

TEST_F(Reddit, nothingKnownAfterAFailureOfTheMainSiteIsAFailure) {
    expectOld(html(""));
    expectNew(std::nullopt);
    expectFailure(service.fetch(u"brindle"_s), u"reddit"_s, u"Couldn't read that profile"_s);
}

TEST_F(Reddit, repairsBadBytes) {
    expectOld(html("\xff<span class=\"karma\">5</span>\xc3 6 followers"));
    EXPECT_EQ(service.fetch(u"brindle"_s).chips.size(), 2U);
}

TEST_F(Reddit, keepsANameInItsSegment) {
    expectPage("https://old.reddit.com/user/u%2Fname", html("class=\"karma\">1< 2 followers"));
    EXPECT_EQ(service.fetch(u"u/u/name"_s).headline, u"u/u/name"_s);
}

TEST_F(Reddit, asksForNobodyWithoutAName) {
    for (const QString &input : {u""_s, u" "_s, u"/u/"_s, u"u/@"_s, QString(QChar(0xD800))}) {
        expectFailure(service.fetch(input), u"reddit"_s,
                      u"Enter a Reddit username (e.g. brindle)."_s);
    }
}

TEST_F(Reddit, tellsOfARootThatMakesNoUrl) {
    endpoints.oldReddit = u"https://[broken"_s;
    const RedditService lost(client, endpoints, clock, context);
    expectFailure(lost.fetch(u"brindle"_s), u"reddit"_s, u"Invalid URL"_s);
}

} // namespace zeph
