// SPDX-License-Identifier: MIT
#include "services/github/GitHubService.h"

#include "ports/Clock.h"
#include "services/github/ContributionCalendar.h"
#include "services/github/GitHubAnswers.h"
#include "services/github/GitHubRequests.h"
#include "services/web/Endpoints.h"
#include "services/web/Json.h"
#include "services/web/Saturating.h"
#include "services/web/ServiceError.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr int lastPage = 3;
constexpr std::size_t pageSize = 100;

bool isUsable(const std::optional<QString> &token) {
    return token && !token->isEmpty();
}

} // namespace

GitHubService::GitHubService(HttpClient &client, const Endpoints &endpoints, const Clock &clock,
                             const Calendar &gregorian)
    : m_client(client), m_clock(clock), m_calendar(gregorian), m_root(endpoints.gitHub) {}

GitHubStats GitHubService::fetch(const QString &username,
                                 const std::optional<QString> &token) const {
    GitHubStats stats;
    stats.connectionId = QUuid::createUuid();
    stats.username = username;
    const bool hasToken = isUsable(token);
    try {
        const QString path = GitHubRequests::profilePath(username, hasToken);
        GitHubAnswers::readProfile(get(path, token), hasToken, stats);
    } catch (const DescribedError &error) {
        stats.error = error.description();
        return stats;
    }
    addStars(token, stats);
    stats.openPRs = openPRs(username, token);
    stats.updated = m_clock.now();
    return stats;
}

std::optional<ContributionGraph>
GitHubService::fetchContributions(const QString &username, const std::optional<QString> &token,
                                  ContributionLayout layout) const {
    if (!isUsable(token)) {
        return std::nullopt;
    }
    const auto spans = GitHubRequests::spans(layout, m_clock.now(), m_calendar);
    if (spans.empty()) {
        return std::nullopt;
    }
    std::vector<int> years;
    years.reserve(spans.size());
    for (const ContributionSpan &span : spans) {
        years.push_back(span.year);
    }
    try {
        const auto user = ContributionCalendar::user(
            m_client.send(GitHubRequests::contributions(m_root, username, *token, spans)));
        return user ? ContributionCalendar::graph(*user, layout, years) : std::nullopt;
    } catch (const DescribedError &) {
        return std::nullopt;
    }
}

HttpResponse GitHubService::send(const QString &path, const Token &token) const {
    const HttpRequest request = GitHubRequests::request(m_root, path, token);
    if (!request.url.isValid()) {
        throw ServiceError(u"GitHub"_s, 0, u"Invalid URL"_s);
    }
    return m_client.send(request);
}

QJsonObject GitHubService::get(const QString &path, const Token &token) const {
    return GitHubAnswers::object(send(path, token));
}

std::vector<QJsonObject> GitHubService::getArray(const QString &path, const Token &token) const {
    return GitHubAnswers::list(send(path, token));
}

/// Repositories beyond the last page, and those after a page that fails, are not counted.
void GitHubService::addStars(const Token &token, GitHubStats &stats) const {
    const QString path = GitHubRequests::repositoriesPath(stats.username, isUsable(token));
    try {
        for (int page = 1; page <= lastPage; ++page) {
            const auto repositories = getArray(path + u"&page=%1"_s.arg(page), token);
            stats.totalStars =
                saturating::add(stats.totalStars, GitHubAnswers::stars(repositories));
            if (repositories.size() < pageSize) {
                return;
            }
        }
    } catch (const DescribedError &) {
        return;
    }
}

qint64 GitHubService::openPRs(const QString &username, const Token &token) const {
    try {
        const QJsonObject found = get(GitHubRequests::openPullRequestsPath(username), token);
        return json::integer(found.value(u"total_count")).value_or(0);
    } catch (const DescribedError &) {
        return 0;
    }
}

} // namespace zeph
