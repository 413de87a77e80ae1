// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/X11EventListener.h"

#include <QElapsedTimer>
#include <QPoint>
#include <QTimer>

#include <xcb/xinput.h>

#include <functional>
#include <optional>

namespace zeph {

/// Follows the pointer at 20 positions a second at most, however fast the mouse reports. While
/// it moves, motion events are turned off and the position is asked for; only when it has come to
/// rest are the events turned on again, to be woken by the first one.
class X11PointerMotion : private X11EventListener {
public:
    /// The position in device pixels of the root, and the buttons held: bit 1 for the first.
    using Handler = std::function<void(QPoint position, unsigned buttons)>;

    /// `wantEvents` turns the motion events of the server on or off.
    X11PointerMotion(X11Connection &connection, std::function<void(bool)> wantEvents,
                     Handler handler);

    /// To be called for each motion event, with the pointer that moved.
    void noteMotion(std::uint16_t device);

    /// Forgets what is under way; motion events are off afterwards.
    void stop();

private:
    enum class State {
        resting,  // waiting for a motion event
        moving,   // no events wanted, the position is asked for every 50 ms
        settling, // events wanted again, one last position asked for
    };

    void handleEvent(std::uint8_t /*kind*/, const xcb_generic_event_t & /*event*/) override {}
    void askForPosition();
    void takePosition(const xcb_input_xi_query_pointer_reply_t *reply);
    bool tell(const xcb_input_xi_query_pointer_reply_t &reply);

    std::function<void(bool)> m_wantEvents;
    Handler m_handler;
    State m_state = State::resting;
    std::uint16_t m_device = 0;
    bool m_isAsking = false;
    std::optional<QPoint> m_last;
    QElapsedTimer m_sinceAsked;
    QTimer m_timer;
};

} // namespace zeph
