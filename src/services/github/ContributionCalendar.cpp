// SPDX-License-Identifier: MIT
#include "services/github/ContributionCalendar.h"

#include "services/web/Json.h"
#include "services/web/Saturating.h"

#include <utility>

namespace zeph::ContributionCalendar {

using namespace Qt::StringLiterals;

namespace {

ContributionWeek week(const QJsonArray &days) {
    ContributionWeek week;
    for (const QJsonValue element : days) {
        const QJsonObject day = element.toObject();
        week.push_back({json::integer(day.value(u"contributionCount")).value_or(0),
                        level(day.value(u"contributionLevel").toString())});
    }
    return week;
}

/// Years that GitHub tells nothing of leave no row.
std::vector<ContributionRow> stackedRows(const QJsonObject &user, const std::vector<int> &years) {
    std::vector<ContributionRow> rows;
    for (std::size_t index = 0; index < years.size(); ++index) {
        auto ofYear = weeks(user, index);
        if (!ofYear.empty()) {
            rows.push_back(row(std::move(ofYear), QString::number(years[index])));
        }
    }
    return rows;
}

std::vector<ContributionRow> singleRow(const QJsonObject &user, ContributionLayout layout) {
    auto kept = weeks(user, 0);
    if (kept.empty()) {
        return {};
    }
    if (const auto limit = weeksKept(layout); limit && std::ssize(kept) > *limit) {
        kept.erase(kept.begin(), kept.end() - *limit);
    }
    return {row(std::move(kept))};
}

} // namespace

std::optional<QJsonObject> user(const HttpResponse &response) {
    if (!response.isSuccess()) {
        return std::nullopt;
    }
    try {
        const QJsonObject answer = json::parse(response.body).toObject();
        return json::object(answer.value(u"data").toObject().value(u"user"));
    } catch (const DescribedError &) {
        return std::nullopt;
    }
}

std::vector<ContributionWeek> weeks(const QJsonObject &user, std::size_t index) {
    const QJsonObject collection = user.value(u"y%1"_s.arg(index)).toObject();
    const QJsonObject calendar = collection.value(u"contributionCalendar").toObject();
    const QJsonArray told = calendar.value(u"weeks").toArray();
    std::vector<ContributionWeek> weeks;
    for (const QJsonValue element : told) {
        if (const auto days = json::array(element.toObject().value(u"contributionDays"))) {
            weeks.push_back(week(*days));
        }
    }
    return weeks;
}

qint64 level(const QString &name) {
    static constexpr std::array<QStringView, 5> names = {
        u"NONE", u"FIRST_QUARTILE", u"SECOND_QUARTILE", u"THIRD_QUARTILE", u"FOURTH_QUARTILE"};
    for (std::size_t shade = 1; shade < names.size(); ++shade) {
        if (name == names[shade]) {
            return static_cast<qint64>(shade);
        }
    }
    return 0;
}

ContributionRow row(std::vector<ContributionWeek> weeks, const QString &label) {
    qint64 total = 0;
    for (const ContributionWeek &week : weeks) {
        for (const ContributionDay &day : week) {
            total = saturating::add(total, day.count);
        }
    }
    return {QUuid::createUuid(), label, std::move(weeks), total};
}

std::optional<ContributionGraph> graph(const QJsonObject &user, ContributionLayout layout,
                                       const std::vector<int> &years) {
    ContributionGraph graph;
    graph.rows = isStacked(layout) ? stackedRows(user, years) : singleRow(user, layout);
    if (graph.rows.empty()) {
        return std::nullopt;
    }
    for (const ContributionRow &row : graph.rows) {
        graph.grandTotal = saturating::add(graph.grandTotal, row.total);
    }
    return graph;
}

} // namespace zeph::ContributionCalendar
