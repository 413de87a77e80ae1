// SPDX-License-Identifier: MIT
#include "widgets/IntegrationWidgets.h"

#include "widgets/AppRankingView.h"
#include "widgets/ContributionHeatmap.h"
#include "widgets/WidgetFixture.h"

namespace zeph {

using namespace Qt::StringLiterals;

class IntegrationWidgets : public WidgetFixture {
protected:
    StripeStats stripe(const QString &label = {}) const {
        StripeStats stats;
        stats.label = label;
        stats.todayRevenueCents = 4825;
        stats.todayPayments = 9;
        stats.newCustomersToday = 3;
        stats.mrrCents = 100'000;
        stats.activeSubscriptions = 12;
        stats.availableCents = 2000;
        stats.updated = at(9, 40);
        return stats;
    }
    GitHubStats gitHub() const {
        GitHubStats stats;
        stats.totalStars = 123'456;
        stats.followers = 7;
        stats.openPRs = 2;
        stats.publicRepos = 1500;
        stats.updated = at(9, 40);
        return stats;
    }
    RevenueStats revenue(const QString &provider) const {
        RevenueStats stats;
        stats.provider = provider;
        stats.providerName = u"Name of "_s + provider;
        stats.currency = u"USD"_s;
        stats.updated = at(9, 40);
        return stats;
    }
    SimpleIntegrationStats simple(const QString &provider) const {
        SimpleIntegrationStats stats;
        stats.provider = provider;
        stats.updated = at(9, 40);
        return stats;
    }
    static ContributionRow row(const QString &label, std::size_t weeks) {
        return {QUuid(), label, std::vector(weeks, ContributionWeek(7, ContributionDay{1, 1})), 0};
    }
};

TEST_F(IntegrationWidgets, revenueTellsTheDayAndFiveFacts) {
    state.stripeStats = std::vector{stripe()};
    const View view = revenueWidget(context);
    EXPECT_EQ(texts(view), (QStringList{u"REVENUE"_s, u"$48.25 earned today"_s,
                                        u"9 payments today"_s, u"3 new today"_s, u"$1,000 MRR"_s,
                                        u"12 active subs"_s, u"$20 available"_s}));
    EXPECT_EQ(symbols(view), (QStringList{u"creditcard"_s, u"person.badge.plus"_s, u"repeat"_s,
                                          u"person.2"_s, u"banknote"_s}));
}

TEST_F(IntegrationWidgets, aConnectionThatFailedVanishesAndTheOthersOfItsKindStay) {
    StripeStats failed = stripe(u"Failed"_s);
    failed.error = u"HTTP 502"_s;
    StripeStats never = stripe(u"Never fetched"_s);
    never.updated.reset();
    state.stripeStats = std::vector{stripe(u"One"_s), failed, never, stripe(u"Two"_s)};
    const QStringList drawn = texts(revenueWidget(context));
    EXPECT_EQ(drawn.size(), 14);
    EXPECT_EQ(drawn[0], u"ONE"_s);
    EXPECT_EQ(drawn[7], u"TWO"_s);
    state.stripeStats = std::vector{failed};
    EXPECT_TRUE(revenueWidget(context).isEmpty());
}

TEST_F(IntegrationWidgets, blocksStandTenPointsApart) {
    state.stripeStats = std::vector{stripe()};
    const double one = naturalSize(revenueWidget(context)).height();
    state.stripeStats = std::vector{stripe(), stripe()};
    EXPECT_DOUBLE_EQ(naturalSize(revenueWidget(context)).height(), 2 * one + 10);
}

TEST_F(IntegrationWidgets, gitHubTellsFourCounts) {
    GitHubStats hidden = gitHub();
    hidden.showStats = false;
    state.githubStats = std::vector{gitHub(), hidden};
    const View view = githubWidget(context);
    EXPECT_EQ(texts(view), (QStringList{u"GITHUB"_s, u"123K stars"_s, u"7 followers"_s,
                                        u"2 open PRs"_s, u"1,500 repos"_s}));
    EXPECT_EQ(symbols(view),
              (QStringList{u"star"_s, u"person.2"_s, u"arrow.triangle.pull"_s, u"shippingbox"_s}));
}

TEST_F(IntegrationWidgets, theGraphsCaptionNamesItsSpan) {
    const std::pair<ContributionLayout, QString> spans[] = {
        {ContributionLayout::m3, u"in the last 3 months"_s},
        {ContributionLayout::m6, u"in the last 6 months"_s},
        {ContributionLayout::y1, u"in the last year"_s},
        {ContributionLayout::y2, u"over the last 2 years"_s},
        {ContributionLayout::y3, u"over the last 3 years"_s},
        {ContributionLayout::y4, u"over the last 4 years"_s}};
    for (const auto &[layout, words] : spans) {
        GitHubStats stats = gitHub();
        stats.error = u"HTTP 502"_s; // the graph came all the same
        stats.contributionLayout = layout;
        stats.contributions = ContributionGraph{{row({}, 2)}, 1234};
        state.githubStats = std::vector{stats};
        EXPECT_EQ(texts(githubGraphWidget(context)),
                  (QStringList{u"GITHUB · CONTRIBUTIONS"_s, u"1,234 contributions "_s + words}));
    }
}

TEST_F(IntegrationWidgets, yearsAreStackedAndPaddedToTheSameWidth) {
    GitHubStats stats = gitHub();
    stats.contributionLayout = ContributionLayout::y2;
    stats.contributions = ContributionGraph{{row(u"26"_s, 2), row(u"25"_s, 5)}, 1};
    state.githubStats = std::vector{stats};
    const View view = githubGraphWidget(context);
    EXPECT_EQ(textItem(view, u"26"_s).style.font.size, 10);
    expectColor(textItem(view, u"25"_s).style.color, textColor(0.5));
    const std::vector<ShapeItem> squares = shapes(view);
    ASSERT_EQ(squares.size(), 2U * 5 * 7);
    EXPECT_EQ(squares[0].rect.left(), 30 + 8);
    EXPECT_EQ(squares[0].rect.size(), QSizeF(9, 9));
    expectColor(squares[2 * 7].fill->start, textColor(0.04));
    EXPECT_EQ(squares[34].rect.right(), squares[69].rect.right()) << "both rows end alike";
}

TEST_F(IntegrationWidgets, aLoneRowKeepsTheRoomForAName) {
    GitHubStats stats = gitHub();
    stats.contributions = ContributionGraph{{row({}, 3)}, 1};
    state.githubStats = std::vector{stats};
    EXPECT_EQ(shapes(githubGraphWidget(context)).front().rect.left(), 30 + 8);
}

TEST_F(IntegrationWidgets, theHeatmapShadesByLevel) {
    ContributionHeatmap heatmap;
    heatmap.palette = palette;
    heatmap.weeks = {{{0, 0}, {0, 1}, {0, 2}, {0, 3}, {0, 4}, {0, 7}}, {{0, -1}}};
    const std::vector<ShapeItem> squares = shapes(heatmap.body());
    ASSERT_EQ(squares.size(), 5U) << "levels that make no sense and missing days are clear";
    const Color colors[] = {textColor(0.10),
                            {0.00, 0.27, 0.16},
                            {0.00, 0.43, 0.20},
                            {0.15, 0.65, 0.25},
                            {0.22, 0.83, 0.33}};
    for (std::size_t level = 0; level < 5; ++level) {
        expectColor(squares[level].fill->start, colors[level]);
        EXPECT_EQ(squares[level].rect.top(), static_cast<double>(level) * (9 + 3));
    }
    EXPECT_EQ(naturalSize(heatmap.body()), QSizeF(9 + 3 + 9, 7 * 9 + 6 * 3));
}

TEST_F(IntegrationWidgets, theHeatmapTakesNoMoreThanSevenDaysAWeek) {
    ContributionHeatmap heatmap;
    heatmap.palette = palette;
    heatmap.weeks = {ContributionWeek(9, ContributionDay{1, 4})};
    EXPECT_EQ(shapes(heatmap.body()).size(), 7U);
}

TEST_F(IntegrationWidgets, aRevenueRecordWithOnlyMrrShowsOneChip) {
    RevenueStats stats = revenue(u"dodo"_s);
    stats.mrrCents = 250'000;
    state.revenueStats = std::vector{stats, revenue(u"chartmogul"_s)};
    EXPECT_EQ(texts(revenueProviderWidget(WidgetKind::dodo, context)),
              (QStringList{u"NAME OF DODO"_s, u"$2,500 MRR"_s}));
    EXPECT_TRUE(revenueProviderWidget(WidgetKind::lemonsqueezy, context).isEmpty());
}

TEST_F(IntegrationWidgets, aRevenueRecordShowsItsFiveFactsInOrder) {
    RevenueStats stats = revenue(u"chartmogul"_s);
    stats.label = u"Mine"_s;
    stats.mrrCents = 0;
    stats.arrCents = 1200;
    stats.paidCustomers = 3;
    stats.trialUsers = 2;
    stats.totalRevenueCents = 99'900;
    state.revenueStats = std::vector{stats};
    const View view = revenueProviderWidget(WidgetKind::chartmogul, context);
    EXPECT_EQ(texts(view), (QStringList{u"MINE"_s, u"$0 MRR"_s, u"$12 ARR"_s, u"3 paid customers"_s,
                                        u"2 on trial"_s, u"$999 all-time"_s}));
    EXPECT_EQ(symbols(view), (QStringList{u"repeat"_s, u"calendar"_s, u"person.2"_s, u"hourglass"_s,
                                          u"banknote"_s}));
}

TEST_F(IntegrationWidgets, trustMrrShowsTheChipsAsGiven) {
    SimpleIntegrationStats stats = simple(u"trustmrr"_s);
    stats.chips = {{u"repeat"_s, u"$1K MRR"_s}, {u"star"_s, u"Rank 3"_s}};
    state.simpleStats = std::vector{stats};
    EXPECT_EQ(texts(trustmrrWidget(context)),
              (QStringList{u"TRUSTMRR"_s, u"$1K MRR"_s, u"Rank 3"_s}));
}

TEST_F(IntegrationWidgets, customEndpointsShareOneWidgetWithoutTheFailedOnes) {
    const CustomAPIValue value{QUuid(), u"Humidity"_s, u"61"_s};
    state.customResults = std::vector<CustomAPIResult>{
        {QUuid(), u"A"_s, {value, {QUuid(), u"Soil"_s, u"damp"_s}}, {}},
        {QUuid(), u"B"_s, {value}, u"HTTP 500"_s},
        {QUuid(), u"C"_s, {}, {}},
        {QUuid(), u"D"_s, {{QUuid(), u"Sun"_s, u"9"_s}}, {}}};
    const View view = customAPIsWidget(context);
    EXPECT_EQ(texts(view), (QStringList{u"YOUR INTEGRATIONS"_s, u"Humidity: 61"_s, u"Soil: damp"_s,
                                        u"Sun: 9"_s}));
    EXPECT_EQ(symbols(view), QStringList(3, u"puzzlepiece.extension"_s));
    state.customResults = std::vector<CustomAPIResult>{};
    EXPECT_TRUE(customAPIsWidget(context).isEmpty());
}

TEST_F(IntegrationWidgets, customNamesAndValuesFromRightToLeftAreSetApart) {
    state.customResults = std::vector<CustomAPIResult>{
        {QUuid(),
         u"A"_s,
         {{QUuid(), u"עברית"_s, u"12.5"_s}, {QUuid(), u"State"_s, u"פתוח"_s}},
         {}}};
    EXPECT_EQ(texts(customAPIsWidget(context)),
              (QStringList{u"YOUR INTEGRATIONS"_s, u"\u2068עברית\u2069: 12.5"_s,
                           u"State: \u2068פתוח\u2069"_s}));
}

TEST_F(IntegrationWidgets, aFeedShowsOneLineForEachHeadline) {
    SimpleIntegrationStats stats = simple(u"rss"_s);
    stats.chips = {{u"chevron.forward"_s, QString(400, u'x')}, {u"chevron.forward"_s, u"Two"_s}};
    state.simpleStats = std::vector{stats};
    const View view = rssWidget(context);
    EXPECT_EQ(texts(view).first(), u"FEED"_s);
    EXPECT_EQ(texts(view).size(), 3);
    EXPECT_LE(naturalSize(view).width(), 490);
}

TEST_F(IntegrationWidgets, spendingIsToldInCents) {
    state.aiUsage = std::vector<AIUsageStats>{
        {QUuid(), u"openai"_s, {}, u"OpenAI"_s, 41.2, 1.875, at(9, 0), {}},
        {QUuid(), u"claude"_s, {}, u"Claude"_s, {}, 0.0, at(9, 0), {}}};
    EXPECT_EQ(texts(aiProviderWidget(WidgetKind::openai, context)),
              (QStringList{u"OPENAI SPEND"_s, u"$41.20 this month"_s, u"$1.88 today"_s}));
    EXPECT_EQ(texts(aiProviderWidget(WidgetKind::claude, context)),
              (QStringList{u"CLAUDE SPEND"_s, u"$0.00 today"_s}));
}

TEST_F(IntegrationWidgets, analyticsTellsOnlyWhatItKnows) {
    state.analyticsStats = std::vector<AnalyticsStats>{
        {QUuid(), {}, u"Plausible"_s, u"example.org"_s, 1204, {}, at(9, 0), {}}};
    EXPECT_EQ(texts(analyticsWidget(context)),
              (QStringList{u"PLAUSIBLE"_s, u"1,204 visitors today"_s}));
}

TEST_F(IntegrationWidgets, aRankingOfOneApplicationShowsAFullBar) {
    const AppRankingView ranking{{AppUsage{u"a"_s, u"A"_s, 60, {}}}, palette};
    const std::vector<ShapeItem> bars = shapes(ranking.body());
    ASSERT_EQ(bars.size(), 2U);
    EXPECT_EQ(bars[0].rect, bars[1].rect);
}

} // namespace zeph
