// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11PointerMotion.h"

#include "adapters/session/x11/X11Connection.h"

#include <utility>

namespace zeph {

namespace {

constexpr qint64 kPeriod = 50; // milliseconds
constexpr xcb_input_fp1616_t kFixedPoint = 1 << 16;

} // namespace

X11PointerMotion::X11PointerMotion(X11Connection &connection, std::function<void(bool)> wantEvents,
                                   Handler handler)
    : X11EventListener(connection),
      m_wantEvents(std::move(wantEvents)),
      m_handler(std::move(handler)) {
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { askForPosition(); });
}

void X11PointerMotion::noteMotion(std::uint16_t device) {
    m_device = device;
    if (std::exchange(m_state, State::moving) == State::moving) {
        return; // sent before the server heard that no more are wanted
    }
    m_wantEvents(false);
    const qint64 rest = m_sinceAsked.isValid() ? kPeriod - m_sinceAsked.elapsed() : 0;
    if (rest > 0) {
        m_timer.start(static_cast<int>(rest));
    } else {
        askForPosition();
    }
}

void X11PointerMotion::stop() {
    m_timer.stop();
    m_state = State::resting;
}

void X11PointerMotion::askForPosition() {
    if (std::exchange(m_isAsking, true)) {
        return;
    }
    m_sinceAsked.start();
    // The core protocol's answer leaves out the buttons beyond the wheel.
    const auto cookie =
        xcb_input_xi_query_pointer(connection().xcb(), connection().root(), m_device);
    connection().whenReplied(
        *this, {cookie.sequence}, [this](const X11Connection::Replies &replies) {
            m_isAsking = false;
            takePosition(static_cast<const xcb_input_xi_query_pointer_reply_t *>(replies[0].get()));
        });
}

void X11PointerMotion::takePosition(const xcb_input_xi_query_pointer_reply_t *reply) {
    const bool hasMoved = reply && tell(*reply);
    switch (m_state) {
    case State::resting:
        break;
    case State::moving:
        if (hasMoved) {
            m_timer.start(static_cast<int>(kPeriod));
        } else if (!m_timer.isActive()) {
            // Asked once more after the events are on, so that no step falls in between.
            m_state = State::settling;
            m_wantEvents(true);
            askForPosition();
        }
        break;
    case State::settling:
        m_state = State::resting;
        break;
    }
}

bool X11PointerMotion::tell(const xcb_input_xi_query_pointer_reply_t &reply) {
    const QPoint position(reply.root_x / kFixedPoint, reply.root_y / kFixedPoint);
    if (m_last == position) {
        return false;
    }
    m_last = position;
    const bool hasButtons = xcb_input_xi_query_pointer_buttons_length(&reply) > 0;
    m_handler(position, hasButtons ? *xcb_input_xi_query_pointer_buttons(&reply) : 0);
    return true;
}

} // namespace zeph
