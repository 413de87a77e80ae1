// SPDX-License-Identifier: MIT
#pragma once

#include <QSocketNotifier>

#include <xcb/record.h>

#include <functional>
#include <memory>

namespace zeph {

class X11Connection;
class X11ModifierKeys;

/// A stream of key presses, autorepeat included, that says no more than that there was one.
/// Modifiers by themselves are left out. The server has to send which key it was; nothing but
/// whether it is a modifier is asked of that, and it is wiped at once.
///
/// The server's recording extension is used because the raw events of the input extension leave
/// autorepeat out. It occupies a connection of its own.
class X11KeyPresses {
public:
    /// Calls `handler` for each key press; null when the server does not record. `control` and
    /// `modifiers` outlive the stream.
    static std::unique_ptr<X11KeyPresses>
    start(X11Connection &control, const X11ModifierKeys &modifiers, std::function<void()> handler);
    ~X11KeyPresses();

    /// Ends the stream; may be called from the handler.
    void stop();

    X11KeyPresses(const X11KeyPresses &) = delete;
    X11KeyPresses &operator=(const X11KeyPresses &) = delete;

private:
    struct Disconnect {
        void operator()(xcb_connection_t *connection) const { xcb_disconnect(connection); }
    };
    using Handle = std::unique_ptr<xcb_connection_t, Disconnect>;

    X11KeyPresses(X11Connection &control, const X11ModifierKeys &modifiers, Handle data,
                  xcb_record_context_t context, std::function<void()> handler);
    void read();

    X11Connection &m_control;
    const X11ModifierKeys &m_modifiers;
    Handle m_data;
    xcb_record_context_t m_context;
    unsigned m_stream;
    std::function<void()> m_handler;
    QSocketNotifier m_notifier;
};

} // namespace zeph
