// SPDX-License-Identifier: MIT
#pragma once

#include "model/GitHubStats.h"
#include "ports/HttpClient.h"

#include <QJsonObject>

#include <vector>

namespace zeph {

class Calendar;
class Clock;
struct Endpoints;

/// Figures and contribution calendar of a GitHub user. Keeps nothing between calls; callable from
/// any thread but the main one.
class GitHubService {
public:
    /// `gregorian` is a Gregorian calendar in the local time zone, whatever calendar the user
    /// lives by, since GitHub's years are those.
    GitHubService(HttpClient &client, const Endpoints &endpoints, const Clock &clock,
                  const Calendar &gregorian);

    /// Blocks through 1 to 5 requests, one after the other. An absent or empty `token` asks for
    /// what is public. Never throws: a profile that can't be read is told in `error`; a later
    /// failure leaves a figure short.
    GitHubStats fetch(const QString &username, const std::optional<QString> &token) const;

    /// Blocks for one request. Absent without a token and on any failure; never throws.
    std::optional<ContributionGraph> fetchContributions(const QString &username,
                                                        const std::optional<QString> &token,
                                                        ContributionLayout layout) const;

private:
    using Token = std::optional<QString>;

    HttpResponse send(const QString &path, const Token &token) const;
    QJsonObject get(const QString &path, const Token &token) const;
    std::vector<QJsonObject> getArray(const QString &path, const Token &token) const;
    void addStars(const Token &token, GitHubStats &stats) const;
    qint64 openPRs(const QString &username, const Token &token) const;

    HttpClient &m_client;
    const Clock &m_clock;
    const Calendar &m_calendar;
    QString m_root;
};

} // namespace zeph
