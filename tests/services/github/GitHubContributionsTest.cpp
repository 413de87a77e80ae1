// SPDX-License-Identifier: MIT
#include "services/github/GitHubRequests.h"
#include "services/github/GitHubService.h"
#include "services/web/ContractServer.h"
#include "services/web/Endpoints.h"
#include "support/DateOf.h"
#include "support/ManualClock.h"
#include "support/UtcCalendar.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr const char *fetchTime = "2025-11-14T03:15:30.750Z";

/// The one question, for the years of `layout`.
Exchange ask(ContributionLayout layout) {
    return {GitHubRequests::contributions(
        u"https://api.github.com"_s, u"mira"_s, u"t1"_s,
        GitHubRequests::spans(layout, dateOf(fetchTime), UtcCalendar()))};
}

std::optional<ContributionGraph> fetched(ContributionLayout layout,
                                         const std::vector<Exchange> &conversation,
                                         const std::optional<QString> &token = u"t1"_s) {
    ContractServer server(conversation);
    const Endpoints endpoints;
    const ManualClock clock(dateOf(fetchTime).secondsSince1970);
    const UtcCalendar calendar;
    return GitHubService(server.client(), endpoints, clock, calendar)
        .fetchContributions(u"mira"_s, token, layout);
}

} // namespace

TEST(GitHubContributions, withoutATokenNothingIsAsked) {
    EXPECT_EQ(fetched(ContributionLayout::y1, {}, std::nullopt), std::nullopt);
    EXPECT_EQ(fetched(ContributionLayout::y1, {}, u""_s), std::nullopt);
}

TEST(GitHubContributions, aYearWithoutACalendarLeavesTwoRowsAndTheirSum) {
    const auto graph = fetched(
        ContributionLayout::y3,
        {ask(ContributionLayout::y3).answering(fixture("github/graphql-three-years.json"))});
    ASSERT_TRUE(graph.has_value());
    ASSERT_EQ(graph->rows.size(), 2U);
    EXPECT_EQ(graph->rows[0].label, u"2025"_s);
    EXPECT_EQ(graph->rows[1].label, u"2024"_s);
    EXPECT_EQ(graph->grandTotal, 20);
    const std::vector<ContributionWeek> newest{{{0, 0}, {2, 1}}, {{10, 4}}};
    EXPECT_EQ(graph->rows[0].weeks, newest);
}

TEST(GitHubContributions, aSingleLayoutIsOneRowWithoutLabel) {
    const auto graph = fetched(
        ContributionLayout::m3,
        {ask(ContributionLayout::m3).answering(fixture("github/graphql-three-years.json"))});
    ASSERT_TRUE(graph.has_value());
    ASSERT_EQ(graph->rows.size(), 1U);
    EXPECT_EQ(graph->rows[0].label, QString());
    EXPECT_EQ(graph->grandTotal, 12);
}

TEST(GitHubContributions, aUserOfTheWrongNameHasNoGraph) {
    const QByteArray body = fixture("github/graphql-unknown-user.json");
    for (const auto layout : allContributionLayouts) {
        EXPECT_EQ(fetched(layout, {ask(layout).answering(body)}), std::nullopt);
    }
}

TEST(GitHubContributions, anyFailureLeavesNoGraph) {
    const Exchange good =
        ask(ContributionLayout::y1).answering(fixture("github/graphql-three-years.json"));
    Exchange refused = good;
    refused.response.status = 403;
    for (const Exchange &failing :
         {good.cutOff(), refused, good.answering(badGateway()), good.answering(""),
          good.answering("[]"), good.answering(R"({"data":{}})"),
          good.answering(fixture("github/error-401.json"), 401)}) {
        EXPECT_EQ(fetched(ContributionLayout::y1, {failing}), std::nullopt);
    }
    EXPECT_TRUE(fetched(ContributionLayout::y1, {good}).has_value());
}

} // namespace zeph
