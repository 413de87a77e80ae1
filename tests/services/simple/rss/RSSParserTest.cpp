// SPDX-License-Identifier: MIT
#include "services/simple/rss/RSSParser.h"

#include "services/simple/SimpleFixture.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

using Feed = RSSParser::Feed;

void expectFeed(const QByteArray &data, const Feed &expected) {
    const auto feed = RSSParser().parse(data);
    ASSERT_TRUE(feed.has_value()) << data.constData();
    EXPECT_EQ(feed->title, expected.title);
    EXPECT_EQ(feed->items, expected.items);
}

void expectNothing(const QByteArray &data) {
    EXPECT_FALSE(RSSParser().parse(data).has_value()) << data.constData();
}

} // namespace

TEST(RSSParser, readsRss) {
    expectFeed(
        recorded(u"rss/news.rss"_s),
        {u"Harbour News"_s,
         {u"Ferry & tide: a late start"_s, u"Storm \"Ida\" passes"_s, u"Café on the quay reopens"_s,
          u"Lighthouse keeper retires"_s, u"New buoys"_s, u"Old nets"_s}});
}

TEST(RSSParser, readsAtomLikeRss) {
    expectFeed(recorded(u"rss/blog.atom"_s),
               {u"Notes from the pier"_s, {u"Second note"_s, u"First &amp; foremost"_s}});
    expectFeed("<feed><entry><title>a</title></entry></feed>", {u""_s, {u"a"_s}});
}

TEST(RSSParser, aTitleInCdataWithSurroundingBlanksReadsTrimmed) {
    expectFeed("<r><title>\n <![CDATA[ \t a <b> ]]>\u00A0 </title></r>", {u"a <b>"_s, {}});
    expectFeed("<r><title>a <![CDATA[b]]> c</title></r>", {u"a b c"_s, {}});
    expectFeed("<r><title>a<![CDATA[ b ]]>c</title></r>", {u"a b c"_s, {}}); // the whole is trimmed
}

TEST(RSSParser, comparesNamesInLowerCase) {
    expectFeed(
        "<R><Title>t</Title><ITEM><TITLE>i</TITLE></ITEM><Entry><title>e</title></Entry></R>",
        {u"t"_s, {u"i"_s, u"e"_s}});
}

TEST(RSSParser, theFirstTitleOfAnItemWins) {
    expectFeed("<r><item><title> </title><title>b</title><title>c</title></item></r>",
               {u""_s, {u"b"_s}});
}

TEST(RSSParser, aTitleWithAPrefixIsNone) {
    expectFeed("<r><item><media:title>m</media:title><title>t</title></item>"
               "<item><media:title>m</media:title></item></r>",
               {u""_s, {u"t"_s}});
}

TEST(RSSParser, anItemWithoutATitleIsDropped) {
    expectFeed("<r><item/><item><title/></item><item><title>a</title></item></r>",
               {u""_s, {u"a"_s}});
}

TEST(RSSParser, anItemDoesNotInheritTheTitleOfTheOneBefore) {
    expectFeed("<r><item><title>a</title></item><item><link>b</link></item></r>",
               {u""_s, {u"a"_s}});
}

TEST(RSSParser, anImageBeforeTheTitleOfTheChannelGivesItsTitle) {
    expectFeed(
        "<rss><channel><image><title>logo</title></image><title>channel</title></channel></rss>",
        {u"logo"_s, {}});
    expectFeed(
        "<rss><channel><title>channel</title><image><title>logo</title></image></channel></rss>",
        {u"channel"_s, {}});
}

TEST(RSSParser, anEmptyFirstTitleLeavesThePlaceToTheNext) {
    expectFeed("<r><title> </title><item><title>i</title></item><title>late</title></r>",
               {u"late"_s, {u"i"_s}});
}

TEST(RSSParser, anElementWithinATitleEmptiesIt) {
    expectFeed("<r><title>a<b>c</b>d</title></r>", {u"d"_s, {}});
}

TEST(RSSParser, textBeforeATitleDoesNotReachIt) {
    expectFeed("<r>text<title>a</title></r>", {u"a"_s, {}});
}

TEST(RSSParser, aBadTailLeavesWhatWasRead) {
    expectFeed("<rss><channel><title>t</title><item><title>a</title></item><item><title>b</title>"
               "<description>x & y",
               {u"t"_s, {u"a"_s}});
    expectFeed("<rss><item><title>a</title></item>\xff</rss>", {u""_s, {u"a"_s}});
    expectFeed("<rss><title>t</title></rss>tail", {u"t"_s, {}});
}

TEST(RSSParser, anUnknownEntityEndsTheFeedThere) {
    expectFeed("<rss><title>t</title><item><title>a&nbsp;&ndash;&nbsp;b</title></item>"
               "<item><title>c &nope; d</title></item><item><title>e</title></item></rss>",
               {u"t"_s, {u"a\u00A0–\u00A0b"_s}});
}

TEST(RSSParser, aFailureWithNothingReadIsNothing) {
    for (const char *data : {"", "{}", "<rss><title>", "<rss><item><title>a</title>",
                             "<!doctype html><html><head><title>Page</title></head></html>",
                             "<html><head><meta charset=utf-8><title>Page</title></head></html>"}) {
        expectNothing(data);
    }
}

TEST(RSSParser, xmlWithoutTitlesIsAnEmptyFeed) {
    expectFeed("<rss/>", {});
}

TEST(RSSParser, aWebPageIsNoFeed) {
    for (const char *data :
         {"<html/>", "<html><head><title>Page</title></head><body/></html>",
          "<?xml version='1.0'?><!DOCTYPE html><HTML xmlns='http://www.w3.org/1999/xhtml'><head>"
          "<title>Page</title></head></HTML>",
          "<x:html><x:head><title>Page</title></x:head></x:html>",
          "<html><title>Page</title><item><title>a</title></item>&nope;"}) {
        expectNothing(data);
    }
    expectFeed("<rss><html><title>t</title></html></rss>", {u"t"_s, {}});
}

TEST(RSSParser, aTitleReadsAsOneLine) {
    expectFeed("<r><title>\n a\n\t b \r\n c\u2028d\u00A0 e </title>"
               "<item><title><![CDATA[ f\n]]> g</title></item></r>",
               {u"a b c d\u00A0 e"_s, {u"f g"_s}});
}

TEST(RSSParser, followsTheEncodingOfTheDeclaration) {
    expectFeed(
        "<?xml version=\"1.0\" encoding=\"windows-1252\"?><r><title>\x93\xe9\x94</title></r>",
        {u"“é”"_s, {}});
}

TEST(RSSParser, startsAnewWithEachFeed) {
    RSSParser parser;
    parser.parse("<r><title>a</title><item><title>b</title></item><item><title>c</title>");
    const auto feed = parser.parse("<r><title>d</title></r>");
    EXPECT_EQ(feed, (Feed{u"d"_s, {}}));
}

} // namespace zeph
