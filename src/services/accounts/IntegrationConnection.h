// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUuid>

#include <optional>

namespace zeph {

/// One account at one web service. Its secret is kept elsewhere, under its `id`.
struct IntegrationConnection {
    QUuid id;
    QString provider; ///< key of the service, such as "stripe"
    QString name;     ///< shown to the user
    bool enabled = true;
    std::optional<QString> extra = {}; ///< second input: a user name, a site, a feed's address ...
    bool showAhrefsAttribution = true;
    std::optional<QString> oauthClientId = {}; ///< carried along; nothing uses it
    std::optional<qint64> feedCount = {};      ///< RSS: how many of the latest items are shown
    bool showContributionGraph = false;        ///< GitHub
    QString contributionLayout = QStringLiteral("y1"); ///< GitHub: name of a `ContributionLayout`
    bool showStats = true;                             ///< GitHub: the numbers beside the graph

    bool operator==(const IntegrationConnection &) const = default;
};

/// Over all fields, as equality is.
std::size_t qHash(const IntegrationConnection &connection, std::size_t seed = 0) noexcept;

} // namespace zeph
