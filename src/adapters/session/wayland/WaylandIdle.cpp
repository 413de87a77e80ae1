// SPDX-License-Identifier: MIT
#include "adapters/session/wayland/WaylandIdle.h"

#include <utility>

namespace zeph {

namespace {

constexpr std::uint32_t kSeatVersion = 5; // the first one that can be given back

/// A watch of either protocol, which have the same two events.
template <typename Notification>
class NotifiedWatch : public IdleWatch {
public:
    template <typename Listener>
    NotifiedWatch(WaylandHandle<Notification> notification,
                  int (*addListener)(Notification *, const Listener *, void *))
        : m_notification(std::move(notification)) {
        static constexpr Listener listener{[](void *self, Notification * /*notification*/) {
                                               static_cast<NotifiedWatch *>(self)->m_isQuiet = true;
                                           },
                                           [](void *self, Notification * /*notification*/) {
                                               static_cast<NotifiedWatch *>(self)->m_isQuiet =
                                                   false;
                                           }};
        addListener(m_notification.get(), &listener, this);
    }

    bool isQuiet() const override { return m_isQuiet; }

private:
    WaylandHandle<Notification> m_notification;
    bool m_isQuiet = false;
};

} // namespace

WaylandIdle::WaylandIdle(WaylandConnection &connection)
    : m_seat(connection.bindFirst<wl_seat>(wl_seat_interface, kSeatVersion)),
      m_notifier(connection.bindFirst<ext_idle_notifier_v1>(ext_idle_notifier_v1_interface, 1)) {
    if (!m_notifier) {
        m_olderNotifier = connection.bindFirst<org_kde_kwin_idle>(org_kde_kwin_idle_interface, 1);
    }
}

std::unique_ptr<IdleWatch> WaylandIdle::watch(std::chrono::milliseconds limit) {
    const auto timeout = static_cast<std::uint32_t>(limit.count());
    if (m_seat && m_notifier) {
        return std::make_unique<NotifiedWatch<ext_idle_notification_v1>>(
            WaylandHandle<ext_idle_notification_v1>(ext_idle_notifier_v1_get_idle_notification(
                m_notifier.get(), timeout, m_seat.get())),
            &ext_idle_notification_v1_add_listener);
    }
    if (m_seat && m_olderNotifier) {
        return std::make_unique<NotifiedWatch<org_kde_kwin_idle_timeout>>(
            WaylandHandle<org_kde_kwin_idle_timeout>(
                org_kde_kwin_idle_get_idle_timeout(m_olderNotifier.get(), m_seat.get(), timeout)),
            &org_kde_kwin_idle_timeout_add_listener);
    }
    return nullptr;
}

} // namespace zeph
