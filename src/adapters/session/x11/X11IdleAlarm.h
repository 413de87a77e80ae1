// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/X11EventListener.h"

#include <xcb/sync.h>

#include <chrono>
#include <memory>

namespace zeph {

/// Whether the last input is more than some time ago, as the server tells by itself: asking costs
/// nothing, and nobody is woken while the user is away or there.
class X11IdleAlarm : private X11EventListener {
public:
    /// Null when the server counts no idle time. A few round trips.
    static std::unique_ptr<X11IdleAlarm> create(X11Connection &connection,
                                                std::chrono::milliseconds limit);
    ~X11IdleAlarm() override;

    std::chrono::milliseconds limit() const { return m_limit; }
    bool isQuiet() const { return m_isQuiet; }

private:
    X11IdleAlarm(X11Connection &connection, std::chrono::milliseconds limit,
                 xcb_sync_counter_t counter);

    void handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) override;
    void set(xcb_sync_alarm_t alarm, xcb_sync_counter_t counter, xcb_sync_testtype_t test,
             std::chrono::milliseconds value);

    std::chrono::milliseconds m_limit;
    int m_firstEvent;
    xcb_sync_alarm_t m_becameQuiet;
    xcb_sync_alarm_t m_becameBusy;
    bool m_isQuiet = false;
};

} // namespace zeph
