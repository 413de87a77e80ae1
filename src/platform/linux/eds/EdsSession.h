// SPDX-License-Identifier: MIT
#pragma once

#include "core/values/Date.h"
#include "platform/EventStore.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

namespace zeph {

/// What the store is to be watched for. The latest query holds; none of it is read otherwise.
struct EdsQuery {
    bool events = false;
    bool reminders = false;
    bool withTitles = false; ///< of events; reminders come with theirs always
    Date windowStart;        ///< events that overlap the window are read
    Date windowEnd;
    QByteArray zone; ///< the name of the zone that floating times and whole days are in
    int round = 0;   ///< another number has everything read anew

    bool operator==(const EdsQuery &) const = default;
};

/// One occurrence of an event, expanded from its rule.
struct EdsOccurrence {
    Date start;
    Date end;
    bool isAllDay = false;
    std::optional<QString> title;

    bool operator==(const EdsOccurrence &) const = default;
};

/// All occurrences that overlap a window, in the store's order.
struct EdsEvents {
    Date windowStart;
    Date windowEnd;
    bool withTitles = false;
    std::vector<EdsOccurrence> occurrences;
};

/// Where a session brings what it read, on the session's own thread.
class EdsReport : public Port {
public:
    virtual void eventsRead(EdsEvents events) = 0;
    /// Incomplete reminders with a due date.
    virtual void remindersRead(std::vector<Reminder> reminders) = 0;
};

/// The seam to the plug-in: a conversation with Evolution Data Server. It reports first what it
/// found and then every change, until it is stopped; a server that is gone is looked for again.
class EdsSession : public Port {
public:
    /// Serves on the calling thread, and returns some time after `stop`.
    virtual void run() = 0;

    /// Any thread, also before `run`.
    virtual void ask(const EdsQuery &query) = 0;

    /// Any thread, also before `run`. Ends whatever is being waited for.
    virtual void stop() = 0;
};

/// The one function of the plug-in, named `zephMakeEdsSession`; `report` outlives the session,
/// which the caller deletes.
using MakeEdsSession = EdsSession *(*)(EdsReport &report);

} // namespace zeph
