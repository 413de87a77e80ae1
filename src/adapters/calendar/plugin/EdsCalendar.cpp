// SPDX-License-Identifier: MIT
#include "adapters/calendar/plugin/EdsCalendar.h"

#include <algorithm>
#include <utility>

namespace zeph {

namespace {

constexpr guint32 doNotWaitForTheNetwork = static_cast<guint32>(-1);

} // namespace

/// Goes with a question and tells whether its answer still matters.
struct EdsCalendar::Ticket {
    Ticket(std::weak_ptr<EdsCalendar> asking, int number, std::shared_ptr<int> counter)
        : owner(std::move(asking)), round(number), pending(std::move(counter)) {
        ++*pending;
    }
    ~Ticket() { --*pending; }
    Ticket(const Ticket &) = delete;
    Ticket &operator=(const Ticket &) = delete;

    std::shared_ptr<EdsCalendar> claim() const {
        auto calendar = owner.lock();
        return calendar && calendar->m_round == round ? calendar : nullptr;
    }

    std::weak_ptr<EdsCalendar> owner;
    int round;
    std::shared_ptr<int> pending; // outlives the session's calendars
};

EdsCalendar::EdsCalendar(ESource *source, ECalClientSourceType type, GMainContext *context,
                         const EdsPacing &pacing, std::shared_ptr<int> pending,
                         std::function<void()> changed)
    : m_source(shareGLib(source)),
      m_type(type),
      m_pending(std::move(pending)),
      m_changed(std::move(changed)),
      m_pacing(pacing),
      m_retry(context, [this] { open(); }),
      m_retryDelay(pacing.firstRetry) {}

EdsCalendar::~EdsCalendar() {
    close();
}

void EdsCalendar::watch(const EntryFilter &filter, bool anew) {
    const bool sameFilter = m_filter == filter;
    if (!sameFilter) {
        // What is held is of another window, or has fields that are not wanted any more.
        m_entries.clear();
        m_isRead = false;
    }
    m_filter = filter;
    if (anew || (!m_cancellable && !m_retry.isRunning())) {
        m_retryDelay = m_pacing.firstRetry;
        open();
    } else if (!sameFilter && m_client) {
        requestView();
    }
}

EdsCalendar::Ticket *EdsCalendar::makeTicket() {
    return new Ticket(weak_from_this(), ++m_round, m_pending);
}

void EdsCalendar::open() {
    close();
    m_cancellable.reset(g_cancellable_new());
    e_cal_client_connect(m_source.get(), m_type, doNotWaitForTheNetwork, m_cancellable.get(),
                         &EdsCalendar::connected, makeTicket());
}

void EdsCalendar::close() {
    ++m_round;
    m_retry.stop();
    closeView();
    if (m_client) {
        g_signal_handlers_disconnect_by_data(m_client.get(), this);
        m_client.reset();
    }
    if (m_cancellable) {
        g_cancellable_cancel(m_cancellable.get());
        m_cancellable.reset();
    }
}

void EdsCalendar::closeView() {
    if (m_view) {
        g_signal_handlers_disconnect_by_data(m_view.get(), this);
        m_view.reset();
    }
    m_incoming.clear();
    m_viewIsComplete = false;
}

void EdsCalendar::fail() {
    close();
    m_failed = true;
    m_retry.start(m_retryDelay);
    m_retryDelay = std::min(m_retryDelay * 2, m_pacing.lastRetry);
    m_changed();
}

void EdsCalendar::connected(GObject * /*source*/, GAsyncResult *result, gpointer data) {
    const std::unique_ptr<Ticket> ticket(static_cast<Ticket *>(data));
    GError *error = nullptr;
    EClient *const client = e_cal_client_connect_finish(result, &error);
    const GLibPtr<GError> ignored(error);
    GLibPtr<ECalClient> owned(client == nullptr ? nullptr : E_CAL_CLIENT(client));
    const auto calendar = ticket->claim();
    if (!calendar) {
        return;
    }
    owned ? calendar->takeClient(std::move(owned)) : calendar->fail();
}

void EdsCalendar::takeClient(GLibPtr<ECalClient> client) {
    m_client = std::move(client);
    g_signal_connect(m_client.get(), "backend-died", G_CALLBACK(&EdsCalendar::serverDied), this);
    requestView();
}

void EdsCalendar::requestView() {
    closeView();
    e_cal_client_get_view(m_client.get(), m_filter.expression.c_str(), m_cancellable.get(),
                          &EdsCalendar::viewMade, makeTicket());
}

void EdsCalendar::viewMade(GObject *client, GAsyncResult *result, gpointer data) {
    const std::unique_ptr<Ticket> ticket(static_cast<Ticket *>(data));
    ECalClientView *view = nullptr;
    GError *error = nullptr;
    e_cal_client_get_view_finish(E_CAL_CLIENT(client), result, &view, &error);
    const GLibPtr<GError> ignored(error);
    GLibPtr<ECalClientView> owned(view);
    const auto calendar = ticket->claim();
    if (!calendar) {
        return;
    }
    owned ? calendar->takeView(std::move(owned)) : calendar->fail();
}

void EdsCalendar::takeView(GLibPtr<ECalClientView> view) {
    m_view = std::move(view);
    ECalClientView *const made = m_view.get();
    g_signal_connect(made, "objects-added", G_CALLBACK(&EdsCalendar::entriesCame), this);
    g_signal_connect(made, "objects-modified", G_CALLBACK(&EdsCalendar::entriesCame), this);
    g_signal_connect(made, "objects-removed", G_CALLBACK(&EdsCalendar::entriesLeft), this);
    g_signal_connect(made, "complete", G_CALLBACK(&EdsCalendar::viewComplete), this);

    GSList *fields = nullptr;
    for (const char *field : m_filter.fields) {
        // The list's type is not const; the names are only read.
        fields = g_slist_prepend(fields, const_cast<char *>(field));
    }
    GError *error = nullptr;
    e_cal_client_view_set_fields_of_interest(made, fields, &error);
    if (error == nullptr) {
        e_cal_client_view_start(made, &error);
    }
    g_slist_free(fields);
    const GLibPtr<GError> failure(error);
    if (failure) {
        fail(); // never started with all fields, which could hold a title
    }
}

void EdsCalendar::entriesCame(ECalClientView * /*view*/, const GSList *entries, gpointer self) {
    auto *calendar = static_cast<EdsCalendar *>(self);
    Entries &target = calendar->m_viewIsComplete ? calendar->m_entries : calendar->m_incoming;
    for (; entries != nullptr; entries = entries->next) {
        auto *entry = static_cast<ICalComponent *>(entries->data);
        target[entryIdOf(entry)] = shareGLib(entry);
    }
    if (calendar->m_viewIsComplete) {
        calendar->m_changed();
    }
}

void EdsCalendar::entriesLeft(ECalClientView * /*view*/, const GSList *ids, gpointer self) {
    auto *calendar = static_cast<EdsCalendar *>(self);
    Entries &target = calendar->m_viewIsComplete ? calendar->m_entries : calendar->m_incoming;
    for (; ids != nullptr; ids = ids->next) {
        const auto *id = static_cast<const ECalComponentId *>(ids->data);
        const char *const occurrence = e_cal_component_id_get_rid(id);
        target.erase({e_cal_component_id_get_uid(id), occurrence == nullptr ? "" : occurrence});
    }
    if (calendar->m_viewIsComplete) {
        calendar->m_changed();
    }
}

void EdsCalendar::viewComplete(ECalClientView * /*view*/, const GError *error, gpointer self) {
    auto *calendar = static_cast<EdsCalendar *>(self);
    if (error != nullptr) {
        calendar->fail();
        return;
    }
    if (!calendar->m_viewIsComplete) { // a calendar that syncs tells it again after each time
        calendar->m_entries = std::move(calendar->m_incoming);
        calendar->m_incoming.clear();
        calendar->m_viewIsComplete = true;
    }
    calendar->m_isRead = true;
    calendar->m_failed = false;
    calendar->m_retryDelay = calendar->m_pacing.firstRetry;
    calendar->m_changed();
}

void EdsCalendar::serverDied(EClient * /*client*/, gpointer self) {
    // close() lets go of the emitting client, which GObject keeps until the emission is over.
    static_cast<EdsCalendar *>(self)->fail();
}

} // namespace zeph
