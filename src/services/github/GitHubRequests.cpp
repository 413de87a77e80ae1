// SPDX-License-Identifier: MIT
#include "services/github/GitHubRequests.h"

#include "ports/Calendar.h"
#include "services/web/Authorization.h"
#include "services/web/Saturating.h"

#include <QDateTime>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

namespace zeph::GitHubRequests {

using namespace Qt::StringLiterals;

namespace {

QString isoText(Date date) {
    const qint64 seconds = saturating::truncated(std::floor(date.secondsSince1970));
    return QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC).toString(Qt::ISODate);
}

QString spanQuery(std::size_t index, const ContributionSpan &span) {
    return u"y%1:contributionsCollection(from:\"%2\",to:\"%3\"){contributionCalendar{"_s.arg(
               QString::number(index), isoText(span.from), isoText(span.to)) +
           u"totalContributions weeks{contributionDays{contributionCount contributionLevel}}}} "_s;
}

} // namespace

HttpRequest request(const QString &root, const QString &path, const std::optional<QString> &token) {
    HttpRequest request;
    request.url = QUrl(root + u'/' + path, QUrl::StrictMode);
    request.setHeader("Accept", "application/vnd.github+json");
    if (token && !token->isEmpty()) {
        request.setHeader("Authorization", bearer(*token).value);
    }
    return request;
}

QString profilePath(const QString &username, bool hasToken) {
    return hasToken ? u"user"_s : u"users/"_s + username;
}

QString repositoriesPath(const QString &username, bool hasToken) {
    return hasToken ? u"user/repos?per_page=100&affiliation=owner"_s
                    : u"users/"_s + username + u"/repos?per_page=100&type=owner"_s;
}

QString openPullRequestsPath(const QString &username) {
    return u"search/issues?q=author:"_s + username + u"+type:pr+state:open"_s;
}

std::vector<ContributionSpan> spans(ContributionLayout layout, Date now,
                                    const Calendar &gregorian) {
    std::vector<ContributionSpan> spans;
    const int year = gregorian.components(now).year;
    for (int back = 0; back < yearsAsked(layout); ++back) {
        const auto inYear = gregorian.adding(CalendarUnit::year, -back, now);
        const auto whole = inYear ? gregorian.interval(CalendarUnit::year, *inYear) : std::nullopt;
        if (!whole) {
            return {};
        }
        spans.push_back({year - back, whole->start, back == 0 ? now : whole->end - 1});
    }
    return spans;
}

HttpRequest contributions(const QString &root, const QString &username, const QString &token,
                          const std::vector<ContributionSpan> &spans) {
    QString query = u"query($login:String!){user(login:$login){"_s;
    for (std::size_t index = 0; index < spans.size(); ++index) {
        query += spanQuery(index, spans[index]);
    }
    query += u"}}"_s;
    HttpRequest request;
    request.method = "POST";
    request.url = QUrl(root + u"/graphql"_s, QUrl::StrictMode);
    request.setHeader("Authorization", bearer(token).value);
    request.setHeader("Content-Type", "application/json");
    const QJsonObject body{{u"query"_s, query},
                           {u"variables"_s, QJsonObject{{u"login"_s, username}}}};
    request.body = QJsonDocument(body).toJson(QJsonDocument::Compact);
    return request;
}

} // namespace zeph::GitHubRequests
