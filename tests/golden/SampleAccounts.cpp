// SPDX-License-Identifier: MIT
#include "golden/SampleCards.h"
#include "golden/SampleDay.h"

#include "services/simple/RedditProfile.h"

#include <limits>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 largest = std::numeric_limits<qint64>::max();

StripeStats stripe(const QString &label, Date updated) {
    StripeStats stats;
    stats.label = label;
    stats.todayRevenueCents = 48'250;
    stats.todayPayments = 9;
    stats.newCustomersToday = 3;
    stats.mrrCents = 1'284'000;
    stats.activeSubscriptions = 214;
    stats.availableCents = 391'075;
    stats.updated = updated;
    return stats;
}

/// Squares that rise and fall with the week and the season, as a real year does.
ContributionRow contributionRow(const QString &label, int weeks) {
    ContributionRow row;
    row.label = label;
    for (int week = 0; week < weeks; ++week) {
        ContributionWeek days;
        for (int day = 0; day < 7; ++day) {
            const int wave = (week * 5 + day * 3 + week * day) % 11;
            const qint64 level = day == 0 || day == 6 ? wave / 9 : wave / 3 + (wave > 9 ? 1 : 0);
            days.push_back({level * 3, level});
            row.total += level * 3;
        }
        row.weeks.push_back(days);
    }
    return row;
}

GitHubStats gitHub(const QString &label, Date updated) {
    GitHubStats stats;
    stats.label = label;
    stats.followers = 1'284;
    stats.publicRepos = 47;
    stats.totalStars = 123'400;
    stats.openPRs = 6;
    stats.updated = updated;
    return stats;
}

RevenueStats revenue(const QString &provider, const QString &name, Date updated) {
    RevenueStats stats;
    stats.provider = provider;
    stats.providerName = name;
    stats.currency = u"EUR"_s;
    stats.updated = updated;
    return stats;
}

template <typename Record>
Record failed(Record record) {
    record.updated.reset();
    record.error = u"HTTP 502"_s;
    return record;
}

} // namespace

void SampleDay::fillAccounts() {
    fillMorning();
    const Date now = *state.now;
    state.stripeStats = std::vector<StripeStats>{
        stripe({}, now), failed(stripe(u"Old shop"_s, now)), stripe(u"Second shop"_s, now)};
    GitHubStats person = gitHub({}, now);
    person.contributions = ContributionGraph{{contributionRow({}, 53)}, 1'284};
    GitHubStats team = gitHub(u"Team"_s, now);
    team.contributionLayout = ContributionLayout::y2;
    team.contributions =
        ContributionGraph{{contributionRow(u"2026"_s, 20), contributionRow(u"2025"_s, 53)}, 2'911};
    state.githubStats = std::vector<GitHubStats>{person, failed(gitHub(u"Gone"_s, now)), team};
    RevenueStats mogul = revenue(u"chartmogul"_s, u"ChartMogul"_s, now);
    mogul.mrrCents = 912'000;
    mogul.arrCents = 10'944'000;
    mogul.paidCustomers = 188;
    mogul.trialUsers = 21;
    mogul.totalRevenueCents = 24'310'000;
    RevenueStats lemon = revenue(u"lemonsqueezy"_s, u"Lemon Squeezy"_s, now);
    lemon.mrrCents = 48'000;
    RevenueStats dodo = revenue(u"dodo"_s, u"Dodo Payments"_s, now);
    dodo.mrrCents = 310'000;
    dodo.paidCustomers = 44;
    state.revenueStats = std::vector<RevenueStats>{mogul, lemon, failed(lemon), dodo};
    std::vector<SimpleIntegrationStats> records = sampleCards(framing, now);
    const SimpleCard second = redditCard(u"second_account"_s, {7, {}}, true, framing);
    records.push_back(simpleRecord(u"reddit"_s, second, now));
    records.push_back(failed(simpleRecord(u"reddit"_s, second, now)));
    records.push_back(sampleStartup(framing, now));
    records.push_back(feedRecord(u"Field notes"_s,
                                 {u"What the swifts did in the rain"_s,
                                  u"A winter of looking at lichens, slowly, and what it taught us "
                                  u"about patience and walls"_s,
                                  u"Notes on a hedge"_s},
                                 now));
    state.simpleStats = records;
    state.customResults = std::vector<CustomAPIResult>{
        {QUuid(),
         u"Greenhouse"_s,
         {{QUuid(), u"Humidity"_s, u"61"_s}, {QUuid(), u"Soil"_s, u"damp"_s}},
         {}},
        {QUuid(), u"Broken"_s, {{QUuid(), u"Never"_s, u"shown"_s}}, u"HTTP 500"_s},
        {QUuid(), u"Solar roof"_s, {{QUuid(), u"Today"_s, u"14.2 kWh"_s}}, {}}};
    state.aiUsage =
        std::vector<AIUsageStats>{{QUuid(), u"openai"_s, {}, u"OpenAI"_s, 41.2, 1.875, now, {}},
                                  {QUuid(), u"claude"_s, {}, u"Claude"_s, 18.0, {}, now, {}}};
    state.analyticsStats = std::vector<AnalyticsStats>{
        {QUuid(), {}, u"Plausible"_s, u"example.org"_s, 1'204, 3'871, now, {}}};
}

void SampleDay::fillFewAccounts() {
    fillMorning();
    const Date now = *state.now;
    state.stripeStats = std::vector<StripeStats>{stripe({}, now)};
    GitHubStats person = gitHub({}, now);
    person.contributionLayout = ContributionLayout::m3;
    person.contributions = ContributionGraph{{contributionRow({}, 14)}, 201};
    state.githubStats = std::vector<GitHubStats>{person};
    RevenueStats mogul = revenue(u"chartmogul"_s, u"ChartMogul"_s, now);
    mogul.mrrCents = 912'000;
    state.revenueStats = std::vector<RevenueStats>{mogul};
    state.simpleStats = std::vector<SimpleIntegrationStats>{
        simpleRecord(u"reddit"_s, redditCard(u"quiet_desktops"_s, {12'840, {}}, true, framing),
                     now),
        feedRecord(u"Field notes"_s, {u"Notes on a hedge"_s}, now)};
}

void SampleDay::fillOddAccounts() {
    fillAccounts();
    const Date now = *state.now;
    StripeStats huge =
        stripe(u"The Extraordinarily Long Named Trading Company of Upper Wherever"_s, now);
    huge.currency = u"jpy"_s;
    huge.todayRevenueCents = largest;
    huge.mrrCents = -largest;
    huge.todayPayments = largest;
    huge.availableCents = 1;
    state.stripeStats = std::vector<StripeStats>{huge};
    GitHubStats account = gitHub(u"שלום"_s, now);
    account.totalStars = largest;
    account.followers = 0;
    account.openPRs = -1;
    ContributionRow row = contributionRow(u"2026"_s, 5);
    row.weeks[1][2].level = 7;
    row.weeks[3].resize(4);
    account.contributionLayout = ContributionLayout::y4;
    account.contributions = ContributionGraph{
        {row, contributionRow(u"2025"_s, 0), contributionRow(u"2024"_s, 9)}, largest};
    state.githubStats = std::vector<GitHubStats>{account};
    RevenueStats mogul = revenue(u"chartmogul"_s, u"ChartMogul"_s, now);
    mogul.currency = u"???"_s;
    mogul.mrrCents = largest;
    mogul.paidCustomers = 0;
    state.revenueStats = std::vector<RevenueStats>{mogul};
    std::vector<SimpleIntegrationStats> records = oddCards(framing, now);
    records.push_back(feedRecord(
        u"東京の散歩"_s, {u"🌿 静かな朝、ゆっくり歩く"_s, u"عنوان طويل من اليمين إلى اليسار 2026"_s},
        now));
    state.simpleStats = records;
    state.customResults = std::vector<CustomAPIResult>{
        {QUuid(),
         u"Odd"_s,
         {{QUuid(), u"עברית"_s, u"12.5"_s}, {QUuid(), u"Empty"_s, {}}, {QUuid(), {}, u"-1e300"_s}},
         {}}};
}

} // namespace zeph
