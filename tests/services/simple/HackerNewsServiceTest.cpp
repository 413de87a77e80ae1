// SPDX-License-Identifier: MIT
#include "services/simple/HackerNewsService.h"

#include "services/simple/SimpleFixture.h"

#include "services/web/Json.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

class HackerNews : public Simple {
protected:
    HackerNewsService service{client, endpoints, clock, context};
};

} // namespace

TEST_F(HackerNews, showsTheKarma) {
    expectJson("https://hacker-news.firebaseio.com/v0/user/Marlow.json",
               recorded(u"hackernews/user.json"_s));
    expectCard(service.fetch(u" Marlow "_s), u"hackernews"_s, u"@Marlow"_s,
               {{u"flame"_s, u"4,128 karma"_s}});
}

TEST_F(HackerNews, aKarmaThatIsNoIntegerCountsAsNone) {
    for (const char *body :
         {R"({"id":"a"})", R"({"id":null,"karma":"7"})", R"({"id":1,"karma":2.5})"}) {
        const auto card = hackerNewsCard(json::parse(body), u"a"_s, context);
        EXPECT_EQ(card.chips.front().text, u"0 karma"_s) << body;
    }
}

TEST_F(HackerNews, anUnknownUserIsNull) {
    expectJson("https://hacker-news.firebaseio.com/v0/user/nobody.json", "null");
    expectFailure(service.fetch(u"nobody"_s), u"hackernews"_s, u"User not found"_s);
}

TEST_F(HackerNews, keepsANameInItsSegment) {
    expectJson("https://hacker-news.firebaseio.com/v0/user/a%2Fb%3Fc.json", R"({"id":"a"})");
    EXPECT_EQ(service.fetch(u"a/b?c"_s).headline, u"@a/b?c"_s);
}

TEST_F(HackerNews, asksForNobodyWithoutAName) {
    expectFailure(service.fetch(u"\n"_s), u"hackernews"_s, u"Enter a Hacker News username."_s);
}

TEST_F(HackerNews, refusesANameThatHasNoBytes) {
    expectFailure(service.fetch(QString(QChar(0xD800))), u"hackernews"_s, u"Invalid username."_s);
}

} // namespace zeph
