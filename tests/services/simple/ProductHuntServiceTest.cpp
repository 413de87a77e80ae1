// SPDX-License-Identifier: MIT
#include "services/simple/ProductHuntService.h"

#include "services/simple/SimpleFixture.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

class ProductHunt : public Simple {
protected:
    void expectPage(const std::optional<HttpResponse> &response,
                    const QByteArray &url = "https://www.producthunt.com/@harlowe") {
        expect(
            url,
            {{"User-Agent", "Mozilla/5.0 (Macintosh; Intel Mac OS X 10_15_7) AppleWebKit/605.1.15 "
                            "(KHTML, like Gecko) Safari/605.1.15"}},
            response);
    }
    void expectFailureOf(const std::optional<HttpResponse> &response, const QString &error) {
        expectPage(response);
        expectFailure(service.fetch(u"harlowe"_s), u"producthunt"_s, error);
    }

    ProductHuntService service{client, endpoints, clock, context};
};

} // namespace

TEST_F(ProductHunt, showsFollowersAndFollowing) {
    expectPage(html(recorded(u"producthunt/profile.html"_s)));
    expectCard(
        service.fetch(u" @harlowe\n"_s), u"producthunt"_s, u"@harlowe"_s,
        {{u"person.2"_s, u"2,310 followers"_s}, {u"person.badge.plus"_s, u"87 following"_s}});
}

TEST_F(ProductHunt, readsEachFormOfBothNumbers) {
    const auto chips = [this](const QString &page) {
        return productHuntCard(page, u"a"_s, context).chips;
    };
    const Chips both{{u"person.2"_s, u"5 followers"_s}, {u"person.badge.plus"_s, u"6 following"_s}};
    EXPECT_EQ(chips(uR"("followers_count":5,"followedUsersCount":6)"_s), both);
    EXPECT_EQ(chips(uR"("followerCount" : 5, "FOLLOWINGCOUNT" : 6)"_s), both);
    EXPECT_EQ(chips(uR"("followerCount":1,"followersCount":5)"_s).front().text, u"5 followers"_s);
}

TEST_F(ProductHunt, leavesAnUnknownFollowingOut) {
    const Chips one{{u"person.2"_s, u"0 followers"_s}};
    EXPECT_EQ(productHuntCard(uR"("followersCount":0)"_s, u"a"_s, context).chips, one);
}

TEST_F(ProductHunt, takesNoGroupedNumber) {
    EXPECT_EQ(productHuntCard(uR"("followersCount":2,310)"_s, u"a"_s, context).chips.front().text,
              u"2 followers"_s);
}

TEST_F(ProductHunt, tellsFailuresOfThePage) {
    expectFailureOf(html("<html></html>"), u"Couldn't read followers"_s);
    expectFailureOf(html(""), u"Couldn't read followers"_s);
    expectFailureOf(html(R"("followersCount":99999999999999999999)"), u"Couldn't read followers"_s);
    expectFailureOf(html("", 404), u"Profile not found"_s);
    expectFailureOf(html(R"({"message":"words"})", 403), u"HTTP 403"_s);
    expectFailureOf(html("<html>Bad gateway</html>", 502), u"HTTP 502"_s);
    expectFailureOf(std::nullopt, u"The network can't be reached."_s);
}

TEST_F(ProductHunt, repairsBadBytes) {
    expectPage(html("\xff\xfe\"followersCount\":\xc2\xa0"
                    "12"));
    EXPECT_EQ(service.fetch(u"harlowe"_s).chips.front().text, u"12 followers"_s);
}

TEST_F(ProductHunt, dropsOneLeadingAt) {
    expectPage(html(R"("followersCount":1)"), "https://www.producthunt.com/@%40a%2Fb");
    EXPECT_EQ(service.fetch(u"@@a/b"_s).headline, u"@@a/b"_s);
}

TEST_F(ProductHunt, asksForNobodyWithoutAName) {
    for (const QString &input : {u""_s, u" \n"_s, u" @"_s}) {
        expectFailure(service.fetch(input), u"producthunt"_s,
                      u"Enter a Product Hunt username (e.g. harlowe)."_s);
    }
}

TEST_F(ProductHunt, refusesANameThatMakesNoUrl) {
    expectFailure(service.fetch(QString(QChar(0xD800))), u"producthunt"_s, u"Invalid username."_s);
    endpoints.productHunt = u"https://[broken"_s;
    const ProductHuntService lost(client, endpoints, clock, context);
    expectFailure(lost.fetch(u"harlowe"_s), u"producthunt"_s, u"Invalid username."_s);
}

} // namespace zeph
