// SPDX-License-Identifier: MIT
#include "adapters/calendar/plugin/EdsReader.h"

#include <algorithm>
#include <array>

namespace zeph {

namespace {

constexpr gint64 lastAnswers = 100'000; // µs to let cancelled questions come back
// The server need not know our zone, so it is asked for what could overlap in any zone.
constexpr double zoneMargin = 86'400;

constexpr std::array registrySignals{"source-added", "source-removed", "source-enabled",
                                     "source-disabled", "source-changed"};

void attach(GMainContext *context, GSourceFunc function, gpointer data) {
    GSource *const source = g_idle_source_new();
    g_source_set_priority(source, G_PRIORITY_DEFAULT);
    g_source_set_callback(source, function, data, nullptr);
    g_source_attach(source, context);
    g_source_unref(source);
}

std::string utcText(Date date) {
    const auto seconds = static_cast<time_t>(date.secondsSince1970);
    tm fields{};
    gmtime_r(&seconds, &fields);
    std::array<char, 32> text{};
    return {text.data(), strftime(text.data(), text.size(), "%Y%m%dT%H%M%SZ", &fields)};
}

/// Whose turn it is to have a registry. The library gives all threads the same one, which tells its
/// changes to the thread that was the first to ask: one that begins while another ends, which a
/// server that hangs can delay, would hear of none.
std::mutex &turns() {
    static std::mutex turns;
    return turns;
}

const char *extensionOf(ECalClientSourceType type) {
    return type == E_CAL_CLIENT_SOURCE_TYPE_EVENTS ? E_SOURCE_EXTENSION_CALENDAR
                                                   : E_SOURCE_EXTENSION_TASK_LIST;
}

} // namespace

EdsReader::EdsReader(EdsReport &report, const EdsPacing &pacing)
    : m_report(report),
      m_pacing(pacing),
      m_context(g_main_context_new()),
      m_loop(g_main_loop_new(m_context.get(), FALSE)),
      m_cancellable(g_cancellable_new()),
      m_expanding(g_cancellable_new()),
      m_turn(turns(), std::defer_lock),
      m_reconnect(m_context.get(), [this] { connect(); }),
      m_reconnectDelay(pacing.firstReconnect),
      m_syncSoon(m_context.get(), [this] { syncSources(); }),
      m_publishSoon(m_context.get(), [this] { publish(); }),
      m_stragglers(m_context.get(), [this] { publish(); }) {}

EdsReader::~EdsReader() = default;

void EdsReader::run() {
    g_main_context_push_thread_default(m_context.get());
    g_main_loop_run(m_loop.get());
    disconnect();
    drain();
    g_main_context_pop_thread_default(m_context.get());
}

void EdsReader::ask(const EdsQuery &query) {
    const std::lock_guard lock(m_mutex);
    if (!m_asked) {
        attach(m_context.get(), &EdsReader::takeQuery, this);
    }
    m_asked = query;
    if (!query.events) {
        // An expansion may take seconds, and must not outlast the consent to it.
        g_cancellable_cancel(m_expanding.get());
        m_expanding.reset(g_cancellable_new());
    }
}

GLibPtr<GCancellable> EdsReader::expanding() {
    const std::lock_guard lock(m_mutex);
    return shareGLib(m_expanding.get());
}

void EdsReader::stop() {
    g_cancellable_cancel(m_cancellable.get());
    g_cancellable_cancel(expanding().get());
    attach(m_context.get(), &EdsReader::quit, this); // as a source it also works before run()
}

gboolean EdsReader::takeQuery(gpointer self) {
    auto *reader = static_cast<EdsReader *>(self);
    std::optional<EdsQuery> query;
    {
        const std::lock_guard lock(reader->m_mutex);
        query.swap(reader->m_asked);
    }
    if (query) {
        reader->apply(*query);
    }
    return G_SOURCE_REMOVE;
}

gboolean EdsReader::quit(gpointer self) {
    g_main_loop_quit(static_cast<EdsReader *>(self)->m_loop.get());
    return G_SOURCE_REMOVE;
}

void EdsReader::apply(const EdsQuery &query) {
    const bool anew = query.round != m_query.round;
    if (query.zone != m_query.zone) {
        m_zone = LocalZone(query.zone);
    }
    m_query = query;
    if (anew) {
        dropRegistry();
    }
    for (auto &[key, watched] : m_calendars) {
        watched.isStale = true;
        watched.calendar->watch(filterOf(key.first), anew);
        if (!watched.calendar->isRead()) {
            watched.occurrences.clear(); // may have titles that are not wanted any more
        }
    }
    if (!m_registry) {
        connect();
        return;
    }
    syncSources();
    m_stragglers.start(m_pacing.stragglers);
}

void EdsReader::connect() {
    m_reconnect.stop();
    if (!m_turn.owns_lock() && !m_turn.try_lock()) {
        m_reconnect.start(m_pacing.firstReconnect);
        return;
    }
    GError *error = nullptr;
    m_bus.reset(g_bus_get_sync(G_BUS_TYPE_SESSION, m_cancellable.get(), &error));
    // The shared connection stays, of no use, while somebody else still holds it.
    if (m_bus && g_dbus_connection_is_closed(m_bus.get()) == FALSE) {
        // The default ends the whole process with the bus.
        g_dbus_connection_set_exit_on_close(m_bus.get(), FALSE);
        m_registry.reset(e_source_registry_new_sync(m_cancellable.get(), &error));
    }
    const GLibPtr<GError> ignored(error);
    if (!m_registry) {
        dropRegistry();
        m_reconnect.start(m_reconnectDelay);
        m_reconnectDelay = std::min(m_reconnectDelay * 2, m_pacing.lastReconnect);
        return;
    }
    m_reconnectDelay = m_pacing.firstReconnect;
    for (const char *signal : registrySignals) {
        g_signal_connect(m_registry.get(), signal, G_CALLBACK(&EdsReader::sourcesChanged), this);
    }
    syncSources();
    m_stragglers.start(m_pacing.stragglers);
}

void EdsReader::disconnect() {
    m_reconnect.stop();
    m_syncSoon.stop();
    m_publishSoon.stop();
    m_stragglers.stop();
    m_calendars.clear();
    dropRegistry();
}

void EdsReader::dropRegistry() {
    if (m_registry) {
        g_signal_handlers_disconnect_by_data(m_registry.get(), this);
        m_registry.reset();
    }
    m_bus.reset();
    if (m_turn.owns_lock()) {
        m_turn.unlock();
    }
}

/// Lets the answers to what was cancelled arrive, since each holds memory until then.
void EdsReader::drain() {
    const gint64 end = g_get_monotonic_time() + lastAnswers;
    while (*m_pending > 0 && g_get_monotonic_time() < end) {
        if (g_main_context_iteration(m_context.get(), FALSE) == FALSE) {
            g_usleep(1'000);
        }
    }
    while (g_main_context_iteration(m_context.get(), FALSE) != FALSE) {
    }
}

void EdsReader::sourcesChanged(ESourceRegistry * /*registry*/, ESource * /*source*/,
                               gpointer self) {
    auto *reader = static_cast<EdsReader *>(self);
    reader->m_syncSoon.start(reader->m_pacing.coalescing);
}

void EdsReader::syncSources() {
    if (!m_registry) {
        return;
    }
    std::map<Key, Watched> former;
    former.swap(m_calendars);
    const std::array wanted{std::pair(m_query.events, E_CAL_CLIENT_SOURCE_TYPE_EVENTS),
                            std::pair(m_query.reminders, E_CAL_CLIENT_SOURCE_TYPE_TASKS)};
    for (const auto &[isWanted, type] : wanted) {
        GList *const sources =
            isWanted ? e_source_registry_list_enabled(m_registry.get(), extensionOf(type))
                     : nullptr;
        for (GList *link = sources; link != nullptr; link = link->next) {
            auto *source = static_cast<ESource *>(link->data);
            const Key key(type, e_source_get_uid(source));
            const auto known = former.find(key);
            if (known != former.end()) {
                m_calendars.insert(former.extract(known));
            } else {
                addSource(type, source);
            }
        }
        g_list_free_full(sources, g_object_unref);
    }
    m_publishSoon.start(m_pacing.coalescing);
}

void EdsReader::addSource(ECalClientSourceType type, ESource *source) {
    const Key key(type, e_source_get_uid(source));
    const auto changed = [this, key] {
        const auto found = m_calendars.find(key);
        if (found != m_calendars.end()) {
            found->second.isStale = true;
            m_publishSoon.start(m_pacing.coalescing);
        }
    };
    Watched &watched = m_calendars[key];
    watched.calendar =
        std::make_shared<EdsCalendar>(source, type, m_context.get(), m_pacing, m_pending, changed);
    watched.calendar->watch(filterOf(type), false);
}

EntryFilter EdsReader::filterOf(ECalClientSourceType type) const {
    if (type == E_CAL_CLIENT_SOURCE_TYPE_TASKS) {
        return {"(not (is-completed?))",
                {"UID", "RECURRENCE-ID", "SUMMARY", "DUE", "DTSTART", "DURATION", "STATUS",
                 "COMPLETED"}};
    }
    // Series come whole, with their detached occurrences: one that was moved out of the window
    // has to be missing in it.
    EntryFilter filter{"(or (occur-in-time-range? (make-time \"" +
                           utcText(m_query.windowStart - zoneMargin) + "\") (make-time \"" +
                           utcText(m_query.windowEnd + zoneMargin) + "\")) (has-recurrences?))",
                       {"UID", "RECURRENCE-ID", "DTSTART", "DTEND", "DURATION", "RRULE", "EXRULE",
                        "RDATE", "EXDATE"}};
    if (m_query.withTitles) {
        filter.fields.push_back("SUMMARY");
    }
    return filter;
}

void EdsReader::publish() {
    if (m_query.events) {
        publishKind(E_CAL_CLIENT_SOURCE_TYPE_EVENTS);
    }
    if (m_query.reminders) {
        publishKind(E_CAL_CLIENT_SOURCE_TYPE_TASKS);
    }
}

/// Without a server the registry is empty; every server has sources of its own.
bool EdsReader::hasServer() const {
    if (!m_registry) {
        return false;
    }
    GList *const sources = e_source_registry_list_sources(m_registry.get(), nullptr);
    const bool hasSources = sources != nullptr;
    g_list_free_full(sources, g_object_unref);
    return hasSources;
}

/// Worth telling: every calendar is settled, or it took too long, and it is not that all failed.
bool EdsReader::isPublishable(ECalClientSourceType type) const {
    bool allSettled = true;
    bool anyRead = false;
    bool anyCalendar = false;
    for (const auto &[key, watched] : m_calendars) {
        if (key.first == type) {
            anyCalendar = true;
            allSettled = allSettled && watched.calendar->isSettled();
            anyRead = anyRead || watched.calendar->isRead();
        }
    }
    return anyCalendar ? (anyRead && (allSettled || !m_stragglers.isRunning())) : hasServer();
}

/// False when it was cut short.
bool EdsReader::refresh(ECalClientSourceType type, Watched &watched) {
    // Without a client its zones are out of reach; what was read last stays.
    if (!watched.isStale || watched.calendar->client() == nullptr) {
        return true;
    }
    const GLibPtr<GCancellable> cancellable = expanding();
    const ZoneLookup zones{&e_cal_client_tzlookup_cb, watched.calendar->client(), m_zone.get(),
                           cancellable.get()};
    if (type == E_CAL_CLIENT_SOURCE_TYPE_EVENTS) {
        watched.occurrences = readOccurrences(watched.calendar->entries(), m_query, zones);
    } else {
        watched.tasks = readTasks(watched.calendar->entries(), zones);
    }
    watched.isStale = g_cancellable_is_cancelled(cancellable.get()) != FALSE;
    return !watched.isStale;
}

void EdsReader::publishKind(ECalClientSourceType type) {
    if (!isPublishable(type)) {
        return;
    }
    EdsEvents events{m_query.windowStart, m_query.windowEnd, m_query.withTitles, {}};
    std::vector<EdsTask> tasks;
    for (auto &[key, watched] : m_calendars) {
        if (key.first == type && watched.calendar->isRead()) {
            if (!refresh(type, watched)) {
                return;
            }
            events.occurrences.insert(events.occurrences.end(), watched.occurrences.begin(),
                                      watched.occurrences.end());
            tasks.insert(tasks.end(), watched.tasks.begin(), watched.tasks.end());
        }
    }
    if (type == E_CAL_CLIENT_SOURCE_TYPE_EVENTS) {
        m_report.eventsRead(std::move(events));
    } else {
        m_report.tasksRead(std::move(tasks));
    }
}

} // namespace zeph
