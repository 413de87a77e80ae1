// SPDX-License-Identifier: MIT
#include "services/simple/rss/RSSService.h"

#include "services/simple/SimpleFixture.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

class RSS : public Simple {
protected:
    void expectFeed(const std::optional<HttpResponse> &response,
                    const QByteArray &url = "https://news.example/rss") {
        expect(url, {{"User-Agent", "Mozilla/5.0 (compatible; Tavi/1.0)"}}, response);
    }
    static HttpResponse xml(const QByteArray &body) {
        return {200, {{"Content-Type", "application/rss+xml"}}, body};
    }
    SimpleIntegrationStats fetchFeed(const std::optional<HttpResponse> &response,
                                     qint64 count = 3) {
        expectFeed(response);
        return service.fetch(u"https://news.example/rss"_s, count);
    }

    RSSService service{client, clock};
};

RSSParser::Feed feedOf(int items) {
    RSSParser::Feed feed;
    for (int i = 0; i < items; ++i) {
        feed.items.append(QString::number(i));
    }
    return feed;
}

} // namespace

TEST_F(RSS, showsTheTitleAboveTheFirstItems) {
    expectFeed(xml(recorded(u"rss/news.rss"_s)));
    expectCard(service.fetch(u" https://news.example/rss\n"_s, 3), u"rss"_s, u"Harbour News"_s,
               {{u"chevron.forward"_s, u"Ferry & tide: a late start"_s},
                {u"chevron.forward"_s, u"Storm \"Ida\" passes"_s},
                {u"chevron.forward"_s, u"Café on the quay reopens"_s}});
}

TEST_F(RSS, showsAtomLikeRss) {
    expectFeed(xml(recorded(u"rss/blog.atom"_s)), "https://pier.example/feed?format=atom&n=5");
    expectCard(service.fetch(u"https://pier.example/feed?format=atom&n=5"_s, 1), u"rss"_s,
               u"Notes from the pier"_s, {{u"chevron.forward"_s, u"Second note"_s}});
}

TEST_F(RSS, holdsTheCountBetweenOneAndFiveAndWhatTheFeedHas) {
    EXPECT_EQ(feedCard(feedOf(9), 0).chips.size(), 1U);
    EXPECT_EQ(feedCard(feedOf(9), std::numeric_limits<qint64>::min()).chips.size(), 1U);
    EXPECT_EQ(feedCard(feedOf(9), 4).chips.size(), 4U);
    EXPECT_EQ(feedCard(feedOf(9), 9).chips.size(), 5U);
    EXPECT_EQ(feedCard(feedOf(2), 5).chips.size(), 2U);
    EXPECT_EQ(feedCard(feedOf(0), 5).chips.size(), 0U);
    EXPECT_EQ(feedCard(feedOf(2), 5).chips[1].text, u"1"_s);
}

TEST_F(RSS, aFeedWithOnlyATitleGivesAHeadlineAndNoChips) {
    expectCard(fetchFeed(xml("<rss><channel><title>Quiet</title></channel></rss>")), u"rss"_s,
               u"Quiet"_s, {});
}

TEST_F(RSS, aFeedWithoutATitleIsCalledFeed) {
    expectCard(fetchFeed(xml("<rss><item><title>a</title></item></rss>")), u"rss"_s, u"Feed"_s,
               {{u"chevron.forward"_s, u"a"_s}});
}

TEST_F(RSS, aFeedWithABadTailStillShows) {
    expectCard(fetchFeed(xml("<rss><title>t</title><item><title>a</title></item><item>")), u"rss"_s,
               u"t"_s, {{u"chevron.forward"_s, u"a"_s}});
}

TEST_F(RSS, htmlThatIsNoXmlCantBeRead) {
    expectFailure(fetchFeed(html("<!doctype html><html><title>Page</title><br></html>")), u"rss"_s,
                  u"Couldn't read feed"_s);
    expectFailure(fetchFeed(xml("")), u"rss"_s, u"Couldn't read feed"_s);
}

TEST_F(RSS, tellsTheStatusOfARefusal) {
    expectFailure(fetchFeed(html(R"({"message":"words"})", 403)), u"rss"_s, u"HTTP 403"_s);
    expectFailure(fetchFeed(html("<html>Bad gateway</html>", 502)), u"rss"_s, u"HTTP 502"_s);
}

TEST_F(RSS, tellsTheTransportsWords) {
    expectFailure(fetchFeed(std::nullopt), u"rss"_s, u"The network can't be reached."_s);
}

TEST_F(RSS, asksForNothingWithoutAUrl) {
    for (const QString &url : {u""_s, u" \n"_s, u"https://a b/feed"_s, u"http://[::1"_s,
                               u"https://a.example:99999999/feed"_s}) {
        expectFailure(service.fetch(url, 3), u"rss"_s, u"Enter a feed URL (https://…/feed)."_s);
    }
}

} // namespace zeph
