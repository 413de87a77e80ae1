// SPDX-License-Identifier: MIT
#include "services/forms/ServiceCards.h"

#include "base/UuidText.h"
#include "services/forms/FormsFixture.h"

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace zeph {

namespace {

class ServiceCardsTest : public FormsFixture {
protected:
    /// The groups as texts: "title | line | ids of the cards".
    QStringList groups() const {
        QStringList texts;
        for (const CardGroup &group : cardGroups(*store)) {
            QStringList ids;
            for (const ServiceCard &card : group.cards) {
                ids << card.id;
            }
            texts << group.title + u" | "_s + group.line + u" | "_s + ids.join(u' ');
        }
        return texts;
    }

    /// "title | icon | blurb"
    QString face(const QString &id) const {
        const ServiceCard card = cardForID(id, *store);
        EXPECT_EQ(card.id, id);
        return card.title + u" | "_s + card.icon + u" | "_s + card.blurb;
    }

    /// "state | symbol of it"
    QString state(const QString &id) const {
        const ServiceCard card = cardForID(id, *store);
        return card.state + u" | "_s + card.stateIcon;
    }

    CustomAPIConfig endpoint(const QString &name) {
        CustomAPIConfig config{QUuid::createUuid(), name, u"https://a.org"_s, {}, {}};
        store->upsertCustomAPI(config);
        settle();
        return config;
    }
};

TEST_F(ServiceCardsTest, standInTheirGroupsInOrder) {
    EXPECT_THAT(
        groups(),
        ElementsAre(
            u"Revenue & payments | Sales, MRR, and customers on your wallpaper | stripe chartmogul lemonsqueezy dodo gumroad polar trustmrr"_s,
            u"SEO | Domain authority on your wallpaper | ahrefs"_s,
            u"Developer | Code, feeds, and any endpoint | github rss newEndpoint"_s,
            u"Audience & social | Followers and karma across platforms | reddit bluesky producthunt hackernews"_s,
            u"Markets & money | Crypto prices and live currency rates | coingecko currency"_s,
            u"Daily delight | A little something every day | quote"_s));
}

TEST_F(ServiceCardsTest, haveTheirWords) {
    EXPECT_EQ(face(u"stripe"_s), u"Stripe | creditcard | Revenue, MRR, customers"_s);
    EXPECT_EQ(face(u"github"_s),
              u"GitHub | chevron.left.forwardslash.chevron.right | Stars, followers, open PRs"_s);
    EXPECT_EQ(face(u"chartmogul"_s),
              u"ChartMogul | chart.line.uptrend.xyaxis | MRR, ARR, customers"_s);
    EXPECT_EQ(face(u"lemonsqueezy"_s), u"Lemon Squeezy | cart | MRR, revenue, trials"_s);
    EXPECT_EQ(face(u"dodo"_s), u"Dodo Payments | creditcard.circle | MRR, revenue, customers"_s);
    EXPECT_EQ(face(u"trustmrr"_s), u"TrustMRR | building.2 | Verified startup MRR & revenue"_s);
    EXPECT_EQ(face(u"ahrefs"_s), u"Ahrefs | link | Domain Rating at a glance"_s);
    EXPECT_EQ(face(u"coingecko"_s), u"Crypto | bitcoinsign.circle | Coin price & 24h change"_s);
    EXPECT_EQ(face(u"hackernews"_s), u"Hacker News | flame | Your HN karma"_s);
    EXPECT_EQ(face(u"reddit"_s),
              u"Reddit | bubble.left.and.bubble.right | Your karma & followers"_s);
    EXPECT_EQ(face(u"producthunt"_s), u"Product Hunt | p.circle | Your follower count"_s);
    EXPECT_EQ(face(u"bluesky"_s), u"Bluesky | cloud | Followers, following & posts"_s);
    EXPECT_EQ(face(u"currency"_s),
              u"Exchange rate | arrow.left.arrow.right | Live FX between two currencies"_s);
    EXPECT_EQ(face(u"rss"_s),
              u"RSS feed | dot.radiowaves.up.forward | Latest headlines from any feed"_s);
    EXPECT_EQ(face(u"gumroad"_s), u"Gumroad | bag | Today's sales & revenue"_s);
    EXPECT_EQ(face(u"polar"_s), u"Polar | bolt.circle | MRR, revenue & subscriptions"_s);
    EXPECT_EQ(face(u"quote"_s), u"Quote of the Day | quote.bubble | Daily inspiration"_s);
}

TEST_F(ServiceCardsTest, tellHowManyAccountsThereAre) {
    EXPECT_EQ(state(u"stripe"_s), u" | "_s);
    add(u"stripe"_s);
    EXPECT_EQ(state(u"stripe"_s), u"1 connected | checkmark.circle.fill"_s);
    add(u"stripe"_s);
    EXPECT_EQ(state(u"stripe"_s), u"2 connected | checkmark.circle.fill"_s);
    EXPECT_TRUE(cardForID(u"stripe"_s, *store).isConnected);
    EXPECT_FALSE(cardForID(u"polar"_s, *store).isConnected);
}

TEST_F(ServiceCardsTest, tellThatNoKeyIsNeededUntilThereIsAnAccount) {
    EXPECT_EQ(state(u"reddit"_s), u"No API key needed | checkmark.seal"_s);
    EXPECT_EQ(state(u"github"_s), u" | "_s) << "which takes one";
    add(u"reddit"_s, u"brindle"_s);
    EXPECT_EQ(state(u"reddit"_s), u"1 connected | checkmark.circle.fill"_s);
}

TEST_F(ServiceCardsTest, theQuoteIsConnectedWhileItIsOn) {
    EXPECT_EQ(state(u"quote"_s), u"Connected | checkmark.circle.fill"_s);
    store->setQuoteEnabled(false);
    EXPECT_EQ(state(u"quote"_s), u" | "_s);
    EXPECT_EQ(cardForID(u"quote"_s, *store).target, CardTarget::quote);
}

TEST_F(ServiceCardsTest, everyEndpointHasOneBeforeTheOneThatAddsAnother) {
    const auto named = endpoint(u"Signups"_s);
    const auto unnamed = endpoint({});
    const auto cards = cardGroups(*store)[2].cards;
    ASSERT_EQ(cards.size(), 5U);
    EXPECT_EQ(cards[2], (ServiceCard{CardTarget::endpoint,
                                     uuidText(named.id),
                                     named.id,
                                     u"Signups"_s,
                                     u"puzzlepiece.extension"_s,
                                     u"Any endpoint + JSON path"_s,
                                     {},
                                     {},
                                     false}));
    EXPECT_EQ(cards[3].title, u"Custom API"_s);
    EXPECT_EQ(cards[3].endpoint, unnamed.id);
    EXPECT_EQ(cards[4], (ServiceCard{CardTarget::newEndpoint,
                                     u"newEndpoint"_s,
                                     {},
                                     u"Add custom API"_s,
                                     u"plus.circle"_s,
                                     {},
                                     {},
                                     {},
                                     false}));
}

} // namespace

} // namespace zeph
