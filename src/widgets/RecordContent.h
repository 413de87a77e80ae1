// SPDX-License-Identifier: MIT
#pragma once

#include "model/CustomAPIResult.h"
#include "model/GitHubStats.h"
#include "settings/WidgetKind.h"

namespace zeph {

/// Which records have something to say; the others are left out without a word.

/// A complete fetch that did not fail.
template <typename Record>
bool hasSucceeded(const Record &record) {
    return !record.error && record.updated;
}

/// The same, of the provider that `kind` shows.
template <typename Record>
bool hasSucceeded(const Record &record, WidgetKind kind) {
    return record.provider == rawValue(kind) && hasSucceeded(record);
}

inline bool hasNumbers(const GitHubStats &account) {
    return hasSucceeded(account) && account.showStats;
}

/// A graph is drawn even when the rest of that fetch failed.
inline bool hasGraph(const GitHubStats &account) {
    return account.contributions.has_value();
}

inline bool hasValues(const CustomAPIResult &result) {
    return !result.error && !result.values.empty();
}

} // namespace zeph
