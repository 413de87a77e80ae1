// SPDX-License-Identifier: MIT
#include "services/github/ContributionCalendar.h"

#include "services/web/Json.h"
#include "support/FakeHttpClient.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// The year `alias` with `count` weeks of one day; the day of week n has n contributions.
QByteArray year(const QByteArray &alias, int count) {
    QByteArray weeks;
    for (int week = 1; week <= count; ++week) {
        weeks += R"({"contributionDays":[{"contributionCount":)" + QByteArray::number(week) +
                 R"(,"contributionLevel":"NONE"}]})" + (week == count ? "" : ",");
    }
    return '"' + alias + R"(":{"contributionCalendar":{"weeks":[)" + weeks + "]}}";
}

std::optional<ContributionGraph> graphOf(const QByteArray &years, ContributionLayout layout,
                                         const std::vector<int> &asked = {2025}) {
    return ContributionCalendar::graph(json::parse('{' + years + '}').toObject(), layout, asked);
}

/// The counts of the first and the last week that a single layout keeps of `count`, and its total.
std::string kept(ContributionLayout layout, int count) {
    const auto graph = graphOf(year("y0", count), layout);
    if (!graph || graph->rows.size() != 1 || graph->grandTotal != graph->rows[0].total) {
        return "no single row";
    }
    const auto &weeks = graph->rows[0].weeks;
    return std::to_string(weeks.front().front().count) + " to " +
           std::to_string(weeks.back().front().count) + ", total " +
           std::to_string(graph->grandTotal);
}

} // namespace

TEST(ContributionCalendar, threeMonthsAreTheLastThirteenWeeks) {
    EXPECT_EQ(kept(ContributionLayout::m3, 13), "1 to 13, total 91");
    EXPECT_EQ(kept(ContributionLayout::m3, 14), "2 to 14, total 104");
    EXPECT_EQ(kept(ContributionLayout::m3, 2), "1 to 2, total 3");
}

TEST(ContributionCalendar, sixMonthsAreTheLastTwentySixWeeks) {
    EXPECT_EQ(kept(ContributionLayout::m6, 26), "1 to 26, total 351");
    EXPECT_EQ(kept(ContributionLayout::m6, 27), "2 to 27, total 377");
}

TEST(ContributionCalendar, aYearKeepsEveryWeek) {
    EXPECT_EQ(kept(ContributionLayout::y1, 53), "1 to 53, total 1431");
}

TEST(ContributionCalendar, aSingleRowHasNoLabelAndAnIdentity) {
    const auto graph = graphOf(year("y0", 1), ContributionLayout::y1);
    ASSERT_TRUE(graph.has_value());
    EXPECT_EQ(graph->rows[0].label, QString());
    EXPECT_FALSE(graph->rows[0].id.isNull());
    EXPECT_NE(graph->rows[0].id, graphOf(year("y0", 1), ContributionLayout::y1)->rows[0].id);
}

TEST(ContributionCalendar, aYearWithoutWeeksLeavesNoRowAndNoHole) {
    const QByteArray user = year("y0", 2) + ',' + year("y1", 0) + ',' + year("y2", 3);
    const auto graph = graphOf(user, ContributionLayout::y4, {2025, 2024, 2023, 2022});
    ASSERT_TRUE(graph.has_value());
    ASSERT_EQ(graph->rows.size(), 2U);
    EXPECT_EQ(graph->rows[0].label, u"2025"_s);
    EXPECT_EQ(graph->rows[0].total, 3);
    EXPECT_EQ(graph->rows[1].label, u"2023"_s);
    EXPECT_EQ(graph->rows[1].total, 6);
    EXPECT_EQ(graph->grandTotal, 9);
}

TEST(ContributionCalendar, aStackedLayoutKeepsEveryWeek) {
    const auto graph = graphOf(year("y0", 53), ContributionLayout::y2, {2025, 2024});
    ASSERT_TRUE(graph.has_value());
    EXPECT_EQ(graph->rows[0].weeks.size(), 53U);
}

TEST(ContributionCalendar, withoutAnyWeekThereIsNoGraph) {
    for (const auto layout : allContributionLayouts) {
        EXPECT_EQ(graphOf("", layout, {2025, 2024, 2023, 2022}), std::nullopt);
        EXPECT_EQ(graphOf(year("y0", 0), layout, {2025, 2024, 2023, 2022}), std::nullopt);
    }
}

TEST(ContributionCalendar, aSingleLayoutLooksAtThisYearAlone) {
    EXPECT_EQ(graphOf(year("y1", 5), ContributionLayout::m3), std::nullopt);
}

TEST(ContributionCalendar, knowsFiveShades) {
    const std::pair<const char *, qint64> shades[] = {{"NONE", 0},
                                                      {"FIRST_QUARTILE", 1},
                                                      {"SECOND_QUARTILE", 2},
                                                      {"THIRD_QUARTILE", 3},
                                                      {"FOURTH_QUARTILE", 4},
                                                      {"first_quartile", 0},
                                                      {"FIFTH_QUARTILE", 0},
                                                      {"", 0}};
    for (const auto &[name, shade] : shades) {
        EXPECT_EQ(ContributionCalendar::level(QString::fromLatin1(name)), shade) << name;
    }
}

TEST(ContributionCalendar, daysOfAnotherFormCountAsNothing) {
    const auto weeks = ContributionCalendar::weeks(
        json::parse(R"({"y0":{"contributionCalendar":{"weeks":[{"contributionDays":[)"
                    R"({"contributionCount":"4","contributionLevel":3},{},7,)"
                    R"({"contributionCount":2.5,"contributionLevel":"FOURTH_QUARTILE"},)"
                    R"({"contributionCount":-3}]}]}}})")
            .toObject(),
        0);
    const std::vector<ContributionWeek> expected{{{0, 0}, {0, 0}, {0, 0}, {0, 4}, {-3, 0}}};
    EXPECT_EQ(weeks, expected);
}

TEST(ContributionCalendar, aWeekWithoutDaysIsDropped) {
    const auto weeks = ContributionCalendar::weeks(
        json::parse(R"({"y0":{"contributionCalendar":{"weeks":[{},{"contributionDays":null},4,)"
                    R"({"contributionDays":[]},{"contributionDays":[{"contributionCount":1}]}]}}})")
            .toObject(),
        0);
    const std::vector<ContributionWeek> expected{{}, {{1, 0}}};
    EXPECT_EQ(weeks, expected);
}

TEST(ContributionCalendar, aMissingLevelIsNoWeeks) {
    for (const char *user : {"{}", R"({"y0":null})", R"({"y0":{"contributionCalendar":[]}})",
                             R"({"y0":{"contributionCalendar":{"weeks":{}}}})"}) {
        EXPECT_TRUE(ContributionCalendar::weeks(json::parse(user).toObject(), 0).empty()) << user;
    }
}

TEST(ContributionCalendar, totalsBeyondAllNumbersEndAtTheLimit) {
    const qint64 largest = std::numeric_limits<qint64>::max();
    EXPECT_EQ(ContributionCalendar::row({{{largest, 1}, {largest, 1}}}).total, largest);
}

TEST(ContributionCalendar, findsTheUserOnlyInAnAnswerOfSuccess) {
    const QByteArray body = R"({"data":{"user":{"y0":{}}}})";
    EXPECT_TRUE(ContributionCalendar::user(FakeHttpClient::json(body)).has_value());
    EXPECT_EQ(ContributionCalendar::user(FakeHttpClient::json(body, 401)), std::nullopt);
    for (const char *other : {"", "<html>", "[]", "null", "{}", R"({"data":null})",
                              R"({"data":{"user":null}})", R"({"data":{"user":[]}})"}) {
        EXPECT_EQ(ContributionCalendar::user(FakeHttpClient::json(other)), std::nullopt) << other;
    }
}

} // namespace zeph
