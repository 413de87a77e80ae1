// SPDX-License-Identifier: MIT
#pragma once

#include "model/GitHubStats.h"
#include "ports/HttpClient.h"

#include <QJsonObject>

#include <vector>

/// Reading what GitHub's REST interface answers.
namespace zeph::GitHubAnswers {

/// The body as an object, empty for a body that is none. Throws `ServiceError` for a status that
/// is not of success.
QJsonObject object(const HttpResponse &response);

/// The body as a list of objects, empty for anything else. The status is not looked at: the body
/// of a refusal is no list.
std::vector<QJsonObject> list(const HttpResponse &response);

/// Private repositories count where a token shows them.
void readProfile(const QJsonObject &profile, bool hasToken, GitHubStats &stats);

/// The stars of one page of repositories.
qint64 stars(const std::vector<QJsonObject> &repositories);

} // namespace zeph::GitHubAnswers
