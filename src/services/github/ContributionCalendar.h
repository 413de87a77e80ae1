// SPDX-License-Identifier: MIT
#pragma once

#include "model/ContributionGraph.h"
#include "ports/HttpClient.h"

#include <QJsonObject>

#include <optional>

/// From GitHub's contribution calendars to the graph that is drawn.
namespace zeph::ContributionCalendar {

/// `data.user` of an answer of success; absent for any other answer.
std::optional<QJsonObject> user(const HttpResponse &response);

/// The weeks of the calendar asked for under the name "y{index}"; none when it is not there.
std::vector<ContributionWeek> weeks(const QJsonObject &user, std::size_t index);

/// The shade of GitHub's word for it, 0 to 4.
qint64 level(const QString &name);

/// A row of `weeks` and their total, with an identity of its own.
ContributionRow row(std::vector<ContributionWeek> weeks, const QString &label = {});

/// `years` are those asked for, in that order. Absent when no calendar holds a week.
std::optional<ContributionGraph> graph(const QJsonObject &user, ContributionLayout layout,
                                       const std::vector<int> &years);

} // namespace zeph::ContributionCalendar
