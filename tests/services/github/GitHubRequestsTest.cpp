// SPDX-License-Identifier: MIT
#include "services/github/GitHubRequests.h"

#include "adapters/locale/IcuCalendar.h"
#include "support/DateOf.h"
#include "support/QtPrinters.h"
#include "support/UtcCalendar.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

std::string spansOf(ContributionLayout layout, const char *now, const Calendar &calendar) {
    std::string text;
    for (const auto &span : GitHubRequests::spans(layout, dateOf(now), calendar)) {
        text += std::to_string(span.year) + ' ' + isoOf(span.from) + ' ' + isoOf(span.to) + '\n';
    }
    return text;
}

} // namespace

TEST(GitHubRequests, aSingleLayoutAsksForTheYearSoFar) {
    const UtcCalendar calendar;
    for (const auto layout :
         {ContributionLayout::m3, ContributionLayout::m6, ContributionLayout::y1}) {
        EXPECT_EQ(spansOf(layout, "2024-02-29T10:20:30.500Z", calendar),
                  "2024 2024-01-01T00:00:00.000Z 2024-02-29T10:20:30.500Z\n");
    }
}

TEST(GitHubRequests, aStackedLayoutAsksForWholeYearsBeforeThisOne) {
    EXPECT_EQ(spansOf(ContributionLayout::y3, "2024-02-29T10:20:30.000Z", UtcCalendar()),
              "2024 2024-01-01T00:00:00.000Z 2024-02-29T10:20:30.000Z\n"
              "2023 2023-01-01T00:00:00.000Z 2023-12-31T23:59:59.000Z\n"
              "2022 2022-01-01T00:00:00.000Z 2022-12-31T23:59:59.000Z\n");
    EXPECT_EQ(
        GitHubRequests::spans(ContributionLayout::y4, dateOf("2024-02-29T10:20:30Z"), UtcCalendar())
            .size(),
        4U);
}

TEST(GitHubRequests, yearsAreThoseOfTheLocalZone) {
    const IcuCalendar tokyo(u"en_001"_s, u"Asia/Tokyo"_s);
    EXPECT_EQ(spansOf(ContributionLayout::y2, "2023-12-31T20:00:00.000Z", tokyo),
              "2024 2023-12-31T15:00:00.000Z 2023-12-31T20:00:00.000Z\n"
              "2023 2022-12-31T15:00:00.000Z 2023-12-31T14:59:59.000Z\n");
}

TEST(GitHubRequests, asksForAllYearsInOneQuery) {
    const auto spans = GitHubRequests::spans(ContributionLayout::y2,
                                             dateOf("2025-03-04T05:06:07.900Z"), UtcCalendar());
    const HttpRequest request =
        GitHubRequests::contributions(u"https://api.github.com"_s, u"mi\"ra"_s, u"t1"_s, spans);
    EXPECT_EQ(request.method, "POST");
    EXPECT_EQ(request.url.toEncoded(), "https://api.github.com/graphql");
    const std::vector<HttpHeader> headers{{"Authorization", "Bearer t1"},
                                          {"Content-Type", "application/json"}};
    EXPECT_EQ(request.headers, headers);
    EXPECT_EQ(request.timeout, std::chrono::seconds(60));
    EXPECT_EQ(
        request.body.toStdString(),
        R"({"query":"query($login:String!){user(login:$login){)"
        R"(y0:contributionsCollection(from:\"2025-01-01T00:00:00Z\",to:\"2025-03-04T05:06:07Z\"))"
        R"({contributionCalendar{totalContributions weeks{contributionDays{contributionCount )"
        R"(contributionLevel}}}} )"
        R"(y1:contributionsCollection(from:\"2024-01-01T00:00:00Z\",to:\"2024-12-31T23:59:59Z\"))"
        R"({contributionCalendar{totalContributions weeks{contributionDays{contributionCount )"
        R"(contributionLevel}}}} )"
        R"(}}","variables":{"login":"mi\"ra"}})");
}

} // namespace zeph
