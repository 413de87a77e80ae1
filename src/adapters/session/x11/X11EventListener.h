// SPDX-License-Identifier: MIT
#pragma once

#include <xcb/xcb.h>

#include <cstdint>

namespace zeph {

class X11Connection;

/// Someone who is told every event of a connection from birth to death. The connection outlives
/// its listeners.
class X11EventListener {
public:
    X11EventListener(const X11EventListener &) = delete;
    X11EventListener &operator=(const X11EventListener &) = delete;

    /// The event's kind without the bit for events that were sent by another client.
    virtual void handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) = 0;

protected:
    explicit X11EventListener(X11Connection &connection);
    virtual ~X11EventListener();

    X11Connection &connection() const { return m_connection; }

private:
    X11Connection &m_connection;
};

/// The event as the structure that its kind stands for.
template <typename Event>
const Event &eventAs(const xcb_generic_event_t &event) {
    return reinterpret_cast<const Event &>(event);
}

} // namespace zeph
