// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/calendar/EdsSession.h"
#include "adapters/calendar/plugin/GLibHandles.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace zeph {

/// An entry of a calendar: its identity, and which occurrence of it was detached, if any.
using EntryId = std::pair<std::string, std::string>;

/// The entries of one calendar, in an order that lasts.
using Entries = std::map<EntryId, GLibPtr<ICalComponent>>;

/// Where the zones of times are looked up.
struct ZoneLookup {
    ECalRecurResolveTimezoneCb find = nullptr; ///< null for a name that nobody knows
    gpointer where = nullptr;                  ///< its second argument
    ICalTimezone *local = nullptr;             ///< of floating times and whole days
    GCancellable *cancellable = nullptr;
};

EntryId entryIdOf(ICalComponent *entry);

/// The occurrences of all entries that overlap the query's window. An occurrence that was changed
/// by itself counts as it was changed, wherever it was moved to.
std::vector<EdsOccurrence> readOccurrences(const Entries &entries, const EdsQuery &query,
                                           const ZoneLookup &zones);

/// The tasks that are to be done and have a due date.
std::vector<EdsTask> readTasks(const Entries &entries, const ZoneLookup &zones);

} // namespace zeph
