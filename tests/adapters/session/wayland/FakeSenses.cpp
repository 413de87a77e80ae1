// SPDX-License-Identifier: MIT
#include "FakeSenses.h"

#include "ext-idle-notify-v1-server-protocol.h"
#include "kwin-idle-server-protocol.h"
#include "wlr-foreign-toplevel-management-unstable-v1-server-protocol.h"

#include <wayland-server.h>

#include <algorithm>
#include <deque>

namespace zeph {

namespace {

struct Desk;

/// What is told to clients of one interface, and what answers them.
struct Offer {
    Desk *desk = nullptr;
    const wl_interface *interface = nullptr;
    const void *requests = nullptr;
};

struct IdleClient {
    wl_resource *handle = nullptr;
    FakeSenses::Watch watch;
};

/// All that lives in the compositor's thread.
struct Desk {
    std::deque<Offer> offers; // their addresses are kept
    std::vector<IdleClient> idleClients;
    wl_resource *manager = nullptr;
    std::vector<wl_resource *> windows; // by their numbers; null once the client gave one back
};

Desk &deskOf(wl_resource *resource) {
    return *static_cast<Desk *>(wl_resource_get_user_data(resource));
}

void endResource(wl_client * /*client*/, wl_resource *resource) {
    wl_resource_destroy(resource);
}

void forget(wl_resource *ended) {
    Desk &desk = deskOf(ended);
    std::erase_if(desk.idleClients,
                  [ended](const IdleClient &known) { return known.handle == ended; });
    std::replace(desk.windows.begin(), desk.windows.end(), ended,
                 static_cast<wl_resource *>(nullptr));
    if (desk.manager == ended) {
        desk.manager = nullptr;
    }
}

wl_resource *makeResource(wl_client *client, const Offer &offer, int version, std::uint32_t id) {
    wl_resource *const made = wl_resource_create(client, offer.interface, version, id);
    wl_resource_set_implementation(made, offer.requests, offer.desk, forget);
    return made;
}

void addWatch(wl_client *client, const Offer &offer, std::uint32_t id, FakeSenses::Watch watch) {
    offer.desk->idleClients.push_back({makeResource(client, offer, 1, id), watch});
}

const struct ext_idle_notification_v1_interface kNotification { endResource };
const struct org_kde_kwin_idle_timeout_interface kTimeout { endResource, nullptr };
const struct wl_seat_interface kSeat { nullptr, nullptr, nullptr, endResource };
const struct zwlr_foreign_toplevel_manager_v1_interface kManager { nullptr };

const struct ext_idle_notifier_v1_interface kNotifier {
    endResource, [](wl_client *client, wl_resource *self, std::uint32_t id,
                    std::uint32_t milliseconds, wl_resource * /*seat*/) {
        addWatch(client, {&deskOf(self), &ext_idle_notification_v1_interface, &kNotification}, id,
                 {milliseconds, false});
    }
};

const struct org_kde_kwin_idle_interface kOlderNotifier {
    [](wl_client *client, wl_resource *self, std::uint32_t id, wl_resource * /*seat*/,
       std::uint32_t milliseconds) {
        addWatch(client, {&deskOf(self), &org_kde_kwin_idle_timeout_interface, &kTimeout}, id,
                 {milliseconds, true});
    }
};

const struct zwlr_foreign_toplevel_handle_v1_interface kWindow {
    nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, endResource, nullptr, nullptr
};

void bindOffer(wl_client *client, void *data, std::uint32_t version, std::uint32_t id) {
    const Offer &offer = *static_cast<Offer *>(data);
    wl_resource *const bound = makeResource(client, offer, static_cast<int>(version), id);
    if (offer.interface == &zwlr_foreign_toplevel_manager_v1_interface) {
        offer.desk->manager = bound;
    }
}

void tellStates(wl_resource *window, bool isActive) {
    wl_array states;
    wl_array_init(&states);
    for (const std::uint32_t state : {0U, 2U}) { // maximized; activated
        if (state == 0 || isActive) {
            *static_cast<std::uint32_t *>(wl_array_add(&states, sizeof state)) = state;
        }
    }
    zwlr_foreign_toplevel_handle_v1_send_state(window, &states);
    wl_array_release(&states);
}

} // namespace

struct FakeSenses::State : Desk {};

FakeSenses::FakeSenses(const Options &options) : m_state(std::make_unique<State>()) {
    m_thread.run([&](wl_display *display) {
        const auto offer = [&](const wl_interface &interface, const void *requests,
                               std::uint32_t version) {
            m_state->offers.push_back({m_state.get(), &interface, requests});
            wl_global_create(display, &interface, static_cast<int>(version),
                             &m_state->offers.back(), bindOffer);
        };
        if (options.hasSeat) {
            offer(wl_seat_interface, &kSeat, 7);
        }
        if (options.hasIdleNotifier) {
            offer(ext_idle_notifier_v1_interface, &kNotifier, 1);
        }
        if (options.hasOlderIdleNotifier) {
            offer(org_kde_kwin_idle_interface, &kOlderNotifier, 1);
        }
        if (options.toplevelVersion > 0) {
            offer(zwlr_foreign_toplevel_manager_v1_interface, &kManager, options.toplevelVersion);
        }
    });
}

FakeSenses::~FakeSenses() {
    m_thread.end();
}

std::vector<FakeSenses::Watch> FakeSenses::watches() {
    std::vector<Watch> result;
    m_thread.run([&](wl_display * /*display*/) {
        for (const IdleClient &client : m_state->idleClients) {
            result.push_back(client.watch);
        }
    });
    return result;
}

void FakeSenses::tellIdle(bool isIdle) {
    m_thread.run([&](wl_display * /*display*/) {
        for (const auto &[handle, watch] : m_state->idleClients) {
            if (watch.isOlder) {
                isIdle ? org_kde_kwin_idle_timeout_send_idle(handle)
                       : org_kde_kwin_idle_timeout_send_resumed(handle);
            } else {
                isIdle ? ext_idle_notification_v1_send_idled(handle)
                       : ext_idle_notification_v1_send_resumed(handle);
            }
        }
    });
}

int FakeSenses::addWindow(const QByteArray &name, bool isActive) {
    int number = 0;
    m_thread.run([&](wl_display * /*display*/) {
        wl_resource *const manager = m_state->manager;
        wl_resource *const window =
            makeResource(wl_resource_get_client(manager),
                         {m_state.get(), &zwlr_foreign_toplevel_handle_v1_interface, &kWindow},
                         wl_resource_get_version(manager), 0);
        zwlr_foreign_toplevel_manager_v1_send_toplevel(manager, window);
        number = static_cast<int>(m_state->windows.size());
        m_state->windows.push_back(window);
        zwlr_foreign_toplevel_handle_v1_send_title(window, "A title");
        zwlr_foreign_toplevel_handle_v1_send_app_id(window, name.constData());
        tellStates(window, isActive);
        if (wl_resource_get_version(manager) >= 3) {
            zwlr_foreign_toplevel_handle_v1_send_parent(window, nullptr);
        }
    });
    return number;
}

void FakeSenses::setActive(int window, bool isActive) {
    m_thread.run([&](wl_display * /*display*/) {
        tellStates(m_state->windows.at(static_cast<std::size_t>(window)), isActive);
    });
}

void FakeSenses::setName(int window, const QByteArray &name) {
    m_thread.run([&](wl_display * /*display*/) {
        zwlr_foreign_toplevel_handle_v1_send_app_id(
            m_state->windows.at(static_cast<std::size_t>(window)), name.constData());
    });
}

void FakeSenses::done(int window) {
    m_thread.run([&](wl_display * /*display*/) {
        zwlr_foreign_toplevel_handle_v1_send_done(
            m_state->windows.at(static_cast<std::size_t>(window)));
    });
}

void FakeSenses::closeWindow(int window) {
    m_thread.run([&](wl_display * /*display*/) {
        zwlr_foreign_toplevel_handle_v1_send_closed(
            m_state->windows.at(static_cast<std::size_t>(window)));
    });
}

void FakeSenses::finishWindows() {
    m_thread.run([&](wl_display * /*display*/) {
        zwlr_foreign_toplevel_manager_v1_send_finished(m_state->manager);
        wl_resource_destroy(m_state->manager);
    });
}

} // namespace zeph
