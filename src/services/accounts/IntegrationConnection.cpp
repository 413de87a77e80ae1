// SPDX-License-Identifier: MIT
#include "services/accounts/IntegrationConnection.h"

#include <QHashFunctions>

namespace zeph {

std::size_t qHash(const IntegrationConnection &connection, std::size_t seed) noexcept {
    return qHashMulti(seed, connection.id, connection.provider, connection.name, connection.enabled,
                      connection.extra.has_value(), connection.extra.value_or(QString()),
                      connection.showAhrefsAttribution, connection.oauthClientId.has_value(),
                      connection.oauthClientId.value_or(QString()),
                      connection.feedCount.has_value(), connection.feedCount.value_or(0),
                      connection.showContributionGraph, connection.contributionLayout,
                      connection.showStats);
}

} // namespace zeph
