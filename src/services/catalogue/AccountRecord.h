// SPDX-License-Identifier: MIT
#pragma once

#include "model/AnalyticsStats.h"
#include "model/GitHubStats.h"
#include "model/RevenueStats.h"
#include "model/SimpleIntegrationStats.h"
#include "model/StripeStats.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <variant>

namespace zeph {

/// What came of asking a service for one account.
using AccountRecord =
    std::variant<StripeStats, GitHubStats, RevenueStats, AnalyticsStats, SimpleIntegrationStats>;

/// The services that are asked in one task, numbered as their records are in `AccountRecord`.
enum class AccountFamily : std::size_t { stripe, github, revenue, analytics, simple };

/// The record of a family.
template <AccountFamily family>
using FamilyRecord = std::variant_alternative_t<static_cast<std::size_t>(family), AccountRecord>;

/// What a service is asked with.
struct AccountQuestion {
    std::optional<QString> key; ///< absent where there is none
    QString value;              ///< what the user gave beside the key, empty where that is nothing
    qint64 itemCount = 3;       ///< of a feed
    std::optional<ContributionLayout> graph = {}; ///< absent where none is shown
};

/// Blocks until the service has answered, so never called on the main thread. A failure is told
/// within the record.
using AccountFetch = std::function<AccountRecord(const AccountQuestion &question)>;

} // namespace zeph
