// SPDX-License-Identifier: MIT
#include "widgets/IntegrationCards.h"

#include "widgets/WallpaperContentView.h"
#include "widgets/WidgetFixture.h"

namespace zeph {

using namespace Qt::StringLiterals;

class IntegrationCards : public WidgetFixture {
protected:
    SimpleIntegrationStats simple(const QString &provider, const QString &headline) const {
        SimpleIntegrationStats stats;
        stats.id = QUuid::createUuidV5(QUuid(), provider + headline);
        stats.provider = provider;
        stats.headline = headline;
        stats.updated = at(9, 40);
        return stats;
    }
    View row(const std::vector<WidgetKind> &kinds) const {
        return content.flowRow(WallpaperContentView::IntegrationCardsRow{kinds}, {});
    }

    WallpaperContentView content{context, {1200, 700}};
};

TEST_F(IntegrationCards, twoAccountsOfAServiceGiveTwoCardsInTheirOrder) {
    SimpleIntegrationStats failed = simple(u"reddit"_s, u"gone"_s);
    failed.error = u"HTTP 404"_s;
    state.simpleStats = std::vector{simple(u"reddit"_s, u"first"_s), simple(u"polar"_s, u"p"_s),
                                    failed, simple(u"reddit"_s, u"second"_s)};
    const auto items = content.integrationCardStats({WidgetKind::polar, WidgetKind::reddit}, {});
    ASSERT_EQ(items.size(), 3U);
    EXPECT_EQ(items[0].kind, WidgetKind::polar);
    EXPECT_EQ(items[1].stats.headline, u"first"_s);
    EXPECT_EQ(items[2].stats.headline, u"second"_s);
    EXPECT_EQ(texts(row({WidgetKind::reddit})),
              (QStringList{u"Reddit"_s, u"first"_s, u"Reddit"_s, u"second"_s}));
}

TEST_F(IntegrationCards, excludedProvidersAreLeftOut) {
    state.simpleStats = std::vector{simple(u"reddit"_s, u"r"_s), simple(u"polar"_s, u"p"_s)};
    const auto items =
        content.integrationCardStats({WidgetKind::polar, WidgetKind::reddit}, {u"polar"_s});
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(items[0].kind, WidgetKind::reddit);
}

TEST_F(IntegrationCards, aRowWithoutRecordsIsEmpty) {
    EXPECT_TRUE(row({WidgetKind::reddit}).isEmpty());
}

TEST_F(IntegrationCards, cardsFillTheirCellsTwoAbreast) {
    SimpleIntegrationStats tall = simple(u"reddit"_s, u"r"_s);
    tall.chips = {{u"star"_s, u"1"_s}, {u"star"_s, u"2"_s}};
    state.simpleStats = std::vector{tall, simple(u"bluesky"_s, u"b"_s), simple(u"polar"_s, u"p"_s)};
    const auto cards = shapes(row({WidgetKind::reddit, WidgetKind::bluesky, WidgetKind::polar}));
    ASSERT_EQ(cards.size(), 3U);
    EXPECT_EQ(cards[0].rect.width(), 240);
    EXPECT_EQ(cards[1].rect.left(), 240 + 12);
    EXPECT_EQ(cards[0].rect.height(), cards[1].rect.height());
    EXPECT_EQ(cards[2].rect.left(), 0);
    EXPECT_LT(cards[2].rect.height(), cards[0].rect.height());
    EXPECT_EQ(cards[0].cornerRadius, 12);
    expectColor(cards[0].fill->start, palette.cardFill);
}

TEST_F(IntegrationCards, aRowTakesNoMoreThanTheContentsWidthAndStaysAtTheLeft) {
    state.simpleStats = std::vector{simple(u"reddit"_s, u"r"_s), simple(u"bluesky"_s, u"b"_s)};
    const WallpaperContentView narrow(context, {300, 700});
    const View cards = narrow.flowRow(
        WallpaperContentView::IntegrationCardsRow{{WidgetKind::reddit, WidgetKind::bluesky}}, {});
    EXPECT_EQ(naturalSize(cards).width(), 300);
    EXPECT_EQ(shapes(cards)[0].rect.left(), 0);
    EXPECT_EQ(naturalSize(row({WidgetKind::reddit, WidgetKind::bluesky})).width(), 240 + 12 + 240);
}

TEST_F(IntegrationCards, summaryCardsHaveFixedTitles) {
    const std::pair<WidgetKind, QString> titles[] = {{WidgetKind::hackernews, u"Hacker News"_s},
                                                     {WidgetKind::reddit, u"Reddit"_s},
                                                     {WidgetKind::producthunt, u"Product Hunt"_s},
                                                     {WidgetKind::bluesky, u"Bluesky"_s},
                                                     {WidgetKind::currency, u"Exchange rate"_s},
                                                     {WidgetKind::gumroad, u"Gumroad"_s},
                                                     {WidgetKind::polar, u"Polar"_s},
                                                     {WidgetKind::vercel, u"Vercel"_s},
                                                     {WidgetKind::netlify, u"Netlify"_s}};
    for (const auto &[kind, title] : titles) {
        SimpleIntegrationStats stats = simple(rawValue(kind), u"head"_s);
        stats.label = u"Not the title"_s;
        stats.chips = {{u"star"_s, u"fact"_s}};
        EXPECT_EQ(texts(content.integrationCard({kind, stats})),
                  (QStringList{title, u"head"_s, u"fact"_s}));
    }
}

TEST_F(IntegrationCards, theSummaryCardsLookIsInItsNumbers) {
    const IntegrationSummaryCard card{u"Title"_s, u"Sub"_s, {{u"star"_s, u"fact"_s}}, palette};
    EXPECT_EQ(textItem(card.body(), u"Title"_s).origin, QPointF(14, 12));
    EXPECT_EQ(textItem(card.body(), u"Title"_s).style.font.size, 14);
    expectColor(textItem(card.body(), u"Title"_s).style.color, textColor(0.88));
    EXPECT_EQ(textItem(card.body(), u"Sub"_s).style.font.size, 12);
    expectColor(textItem(card.body(), u"Sub"_s).style.color, textColor(0.55));
    EXPECT_EQ(textItem(card.body(), u"Sub"_s).origin.y(), 12 + lineHeight(14) + 8);
}

TEST_F(IntegrationCards, aCoinTellsItsPriceAndItsChange) {
    SimpleIntegrationStats coin = simple(u"coingecko"_s, u"Bitcoin"_s);
    EXPECT_EQ(texts(content.integrationCard({WidgetKind::coingecko, coin})),
              (QStringList{u"Bitcoin"_s}));
    coin.chips = {{u"a"_s, u"$1"_s}, {u"b"_s, u"+2%"_s}};
    const View card = content.integrationCard({WidgetKind::coingecko, coin});
    EXPECT_EQ(texts(card), (QStringList{u"Bitcoin"_s, u"$1"_s, u"+2%"_s}));
    EXPECT_EQ(symbols(card), QStringList{u"bitcoinsign.circle"_s});
    EXPECT_EQ(textItem(card, u"Bitcoin"_s).style.font.size, 15);
    expectColor(textItem(card, u"Bitcoin"_s).style.color, textColor(0.9));
    EXPECT_EQ(textItem(card, u"+2%"_s).style.font.size, 11);
    expectColor(textItem(card, u"+2%"_s).style.color, textColor(0.45));
}

TEST_F(IntegrationCards, aRatingNamesItsSourceUnlessTheUserHidIt) {
    SimpleIntegrationStats rating = simple(u"ahrefs"_s, u"example.org"_s);
    rating.chips = {{u"rosette"_s, u"DR 71"_s}};
    const View card = content.integrationCard({WidgetKind::ahrefs, rating});
    EXPECT_EQ(texts(card),
              (QStringList{u"example.org"_s, u"DR 71"_s, u"Domain Rating by Ahrefs"_s}));
    EXPECT_EQ(symbols(card), QStringList{u"link"_s});
    accounts.showAhrefsAttribution = [&](const QUuid &account) { return account != rating.id; };
    EXPECT_EQ(texts(content.integrationCard({WidgetKind::ahrefs, rating})),
              (QStringList{u"example.org"_s, u"DR 71"_s}));
}

} // namespace zeph
