// SPDX-License-Identifier: MIT
#pragma once

#include "base/Date.h"
#include "ports/Port.h"

#include <QByteArray>
#include <QString>

#include <chrono>
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
    QByteArray zone; ///< of floating times and whole days: "Europe/Berlin" or "UTC+05:30"
    int round = 0;   ///< another number has everything read anew

    bool operator==(const EdsQuery &) const = default;
};

/// How long a session waits before it does something again or without somebody.
struct EdsPacing {
    using Milliseconds = std::chrono::milliseconds;
    Milliseconds firstRetry{500}; ///< for a calendar that failed; a killed server is back by then
    Milliseconds lastRetry{60'000};
    Milliseconds firstReconnect{1'000}; ///< for a server that can't be reached at all
    Milliseconds lastReconnect{300'000};
    Milliseconds coalescing{50};    ///< changes often come in bursts
    Milliseconds stragglers{3'000}; ///< then the calendars that did open are shown
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

/// An incomplete task with a due date. One without a time has noon of its day here: which instant
/// begins that day is for the caller's calendar to say.
struct EdsTask {
    Date due;
    bool isDueAllDay = false;
    std::optional<QString> title;

    bool operator==(const EdsTask &) const = default;
};

/// Where a session brings what it read, on the session's own thread.
class EdsReport : public Port {
public:
    virtual void eventsRead(EdsEvents events) = 0;
    virtual void tasksRead(std::vector<EdsTask> tasks) = 0;
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
using MakeEdsSession = EdsSession *(*)(EdsReport &report, const EdsPacing &pacing);

} // namespace zeph
