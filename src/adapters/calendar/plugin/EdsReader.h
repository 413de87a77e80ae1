// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/calendar/EdsSession.h"
#include "adapters/calendar/plugin/EdsCalendar.h"
#include "adapters/calendar/plugin/LocalZone.h"

#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace zeph {

/// The session: watches every enabled calendar and task list that the query is about, and
/// reports all of them together whenever one has changed.
class EdsReader : public EdsSession {
public:
    EdsReader(EdsReport &report, const EdsPacing &pacing);
    ~EdsReader() override;

    void run() override;
    void ask(const EdsQuery &query) override;
    void stop() override;

private:
    using Key = std::pair<ECalClientSourceType, std::string>; // the kind and the source's id

    /// A calendar and what was last made of its entries.
    struct Watched {
        std::shared_ptr<EdsCalendar> calendar;
        bool isStale = true;
        std::vector<EdsOccurrence> occurrences;
        std::vector<EdsTask> tasks;
    };

    void apply(const EdsQuery &query);
    void connect();
    void disconnect();
    void dropRegistry();
    void syncSources();
    void addSource(ECalClientSourceType type, ESource *source);
    EntryFilter filterOf(ECalClientSourceType type) const;
    void publish();
    void publishKind(ECalClientSourceType type);
    bool refresh(ECalClientSourceType type, Watched &watched);
    GLibPtr<GCancellable> expanding();
    bool isPublishable(ECalClientSourceType type) const;
    bool hasServer() const;
    void drain();

    static gboolean takeQuery(gpointer self);
    static gboolean quit(gpointer self);
    static void sourcesChanged(ESourceRegistry *registry, ESource *source, gpointer self);

    EdsReport &m_report;
    const EdsPacing m_pacing;
    GLibPtr<GMainContext> m_context;
    GLibPtr<GMainLoop> m_loop;
    GLibPtr<GCancellable> m_cancellable;
    std::mutex m_mutex;                // guards the next two lines
    std::optional<EdsQuery> m_asked;   // not yet applied; only the latest counts
    GLibPtr<GCancellable> m_expanding; // series of all calendars; ends with the wish for events

    EdsQuery m_query;
    LocalZone m_zone;
    std::shared_ptr<int> m_pending = std::make_shared<int>(0); // shared with answers on their way
    std::unique_lock<std::mutex> m_turn;                       // held while there is a registry
    GLibPtr<GDBusConnection> m_bus;
    GLibPtr<ESourceRegistry> m_registry;
    std::map<Key, Watched> m_calendars;
    ContextTimer m_reconnect;
    std::chrono::milliseconds m_reconnectDelay;
    ContextTimer m_syncSoon;
    ContextTimer m_publishSoon;
    ContextTimer m_stragglers; // runs while calendars that are slow to open are waited for
};

} // namespace zeph
