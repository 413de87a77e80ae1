// SPDX-License-Identifier: MIT
#pragma once

#include "base/Date.h"
#include "model/ContributionLayout.h"
#include "ports/HttpClient.h"

#include <optional>
#include <vector>

namespace zeph {

class Calendar;

/// One calendar year, or the part of it so far.
struct ContributionSpan {
    int year = 0;
    Date from;
    Date to;
};

/// The questions to GitHub.
namespace GitHubRequests {

/// A GET of `path`, which is taken as it stands: the URL is not valid when it can't be.
HttpRequest request(const QString &root, const QString &path, const std::optional<QString> &token);

QString profilePath(const QString &username, bool hasToken);

/// The list of repositories without its page number.
QString repositoriesPath(const QString &username, bool hasToken);

QString openPullRequestsPath(const QString &username);

/// The years that `layout` asks for, the current one first and only until now. `gregorian` is in
/// the local time zone. Empty when the calendar can't tell them.
std::vector<ContributionSpan> spans(ContributionLayout layout, Date now, const Calendar &gregorian);

/// Asks for the calendars of all `spans` at once, under the names "y0", "y1" and so on.
HttpRequest contributions(const QString &root, const QString &username, const QString &token,
                          const std::vector<ContributionSpan> &spans);

} // namespace GitHubRequests

} // namespace zeph
