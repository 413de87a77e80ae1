// SPDX-License-Identifier: MIT
#include "services/github/GitHubAnswers.h"

#include "services/web/Json.h"
#include "services/web/Saturating.h"
#include "services/web/ServiceError.h"

namespace zeph::GitHubAnswers {

using namespace Qt::StringLiterals;

namespace {

/// Null for a body that is no JSON.
QJsonValue valueOrNull(const QByteArray &body) {
    try {
        return json::parse(body);
    } catch (const DescribedError &) {
        return {};
    }
}

} // namespace

QJsonObject object(const HttpResponse &response) {
    QJsonObject body = valueOrNull(response.body).toObject();
    if (!response.isSuccess()) {
        const auto words = json::text(body.value(u"message"));
        throw ServiceError(u"GitHub"_s, response.status,
                           words.value_or(u"GitHub error %1"_s.arg(response.status)));
    }
    return body;
}

std::vector<QJsonObject> list(const HttpResponse &response) {
    std::vector<QJsonObject> objects;
    const QJsonArray elements = valueOrNull(response.body).toArray();
    for (const QJsonValue element : elements) {
        if (!element.isObject()) {
            return {};
        }
        objects.push_back(element.toObject());
    }
    return objects;
}

void readProfile(const QJsonObject &profile, bool hasToken, GitHubStats &stats) {
    stats.followers = json::integer(profile.value(u"followers")).value_or(0);
    stats.publicRepos = json::integer(profile.value(u"public_repos")).value_or(0);
    const auto privateRepos = json::integer(profile.value(u"total_private_repos"));
    if (hasToken && privateRepos) {
        stats.publicRepos = saturating::add(stats.publicRepos, *privateRepos);
    }
}

qint64 stars(const std::vector<QJsonObject> &repositories) {
    qint64 sum = 0;
    for (const QJsonObject &repository : repositories) {
        sum =
            saturating::add(sum, json::integer(repository.value(u"stargazers_count")).value_or(0));
    }
    return sum;
}

} // namespace zeph::GitHubAnswers
