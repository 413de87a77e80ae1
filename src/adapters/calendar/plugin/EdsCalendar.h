// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/calendar/plugin/ContextTimer.h"
#include "adapters/calendar/plugin/EntryReading.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace zeph {

/// Which entries of a calendar are wanted, and which of their fields; no other field is sent.
struct EntryFilter {
    std::string expression;
    std::vector<const char *> fields;

    bool operator==(const EntryFilter &) const = default;
};

/// One calendar or task list of the server: opens it, watches the entries that a filter lets
/// through, and opens it again after the server or the calendar failed. Meanwhile what was read
/// last stays. Used on the thread of its context only.
class EdsCalendar : public std::enable_shared_from_this<EdsCalendar> {
public:
    /// `changed` is called after every change of the entries or of `isSettled`. `pending` counts
    /// the answers still on their way, which may come after this object's end; `pacing` outlives
    /// it.
    EdsCalendar(ESource *source, ECalClientSourceType type, GMainContext *context,
                const EdsPacing &pacing, std::shared_ptr<int> pending,
                std::function<void()> changed);
    ~EdsCalendar();
    EdsCalendar(const EdsCalendar &) = delete;
    EdsCalendar &operator=(const EdsCalendar &) = delete;

    /// Watches the entries of `filter` from now on. With `anew` the calendar is opened again.
    void watch(const EntryFilter &filter, bool anew);

    /// True once the calendar was read or turned out to be unreadable.
    bool isSettled() const { return m_isRead || m_failed; }
    /// True when the entries are all that the filter lets through, as of the server's last word.
    bool isRead() const { return m_isRead; }
    const Entries &entries() const { return m_entries; }
    ECalClient *client() const { return m_client.get(); }

private:
    struct Ticket;

    void open();
    void close();
    void closeView();
    void requestView();
    void takeClient(GLibPtr<ECalClient> client);
    void takeView(GLibPtr<ECalClientView> view);
    void fail();
    Ticket *makeTicket();

    static void connected(GObject *source, GAsyncResult *result, gpointer data);
    static void viewMade(GObject *client, GAsyncResult *result, gpointer data);
    static void entriesCame(ECalClientView *view, const GSList *entries, gpointer self);
    static void entriesLeft(ECalClientView *view, const GSList *ids, gpointer self);
    static void viewComplete(ECalClientView *view, const GError *error, gpointer self);
    static void serverDied(EClient *client, gpointer self);

    GLibPtr<ESource> m_source;
    ECalClientSourceType m_type;
    std::shared_ptr<int> m_pending; // outlives this object in the tickets
    std::function<void()> m_changed;
    const EdsPacing &m_pacing;
    ContextTimer m_retry;
    std::chrono::milliseconds m_retryDelay;
    int m_round = 0; // answers to an older one are dropped
    EntryFilter m_filter;
    GLibPtr<GCancellable> m_cancellable;
    GLibPtr<ECalClient> m_client;
    GLibPtr<ECalClientView> m_view;
    Entries m_incoming;
    Entries m_entries;
    bool m_viewIsComplete = false;
    bool m_isRead = false;
    bool m_failed = false;
};

} // namespace zeph
