// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/X11Atoms.h"
#include "adapters/session/x11/X11Reply.h"
#include "base/ChangePublisher.h"

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>

#include <xcb/xcb.h>

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace zeph {

class X11EventListener;

/// The extensions that this program knows.
enum class X11Extension {
    shm,
    shape,
    xfixes,
    input,
    screensaver,
    record,
    randr,
    sync,
    damage,
    resources
};

/// A connection to the X server beside the toolkit's, driven by the main thread's event loop.
/// Nothing is ever polled: the socket wakes the loop. Errors of requests without a reply are
/// ignored, since windows of other clients may be gone at any moment.
class X11Connection {
public:
    using Replies = std::vector<X11AnyReply>;

    /// Null when the display (empty: that of the environment) can't be reached.
    static std::unique_ptr<X11Connection> open(const QByteArray &display = {});
    ~X11Connection();
    X11Connection(const X11Connection &) = delete;
    X11Connection &operator=(const X11Connection &) = delete;

    xcb_connection_t *xcb() const { return m_connection.get(); }
    const xcb_screen_t &screen() const { return *m_screen; }
    xcb_window_t root() const { return m_screen->root; }
    int screenNumber() const { return m_screenNumber; }

    /// What `open` was given.
    const QByteArray &display() const { return m_display; }
    xcb_atom_t atom(X11Atom atom) const { return m_atoms[atom]; }

    /// Number of a name that is made up at run time; one round trip.
    xcb_atom_t intern(const QByteArray &name) const;

    /// What the server says of the extension; null when it lacks it.
    const xcb_query_extension_reply_t *extension(X11Extension extension) const;

    /// The client that made a window or pixmap, as a number that is the same for all of its own.
    std::uint32_t clientOf(std::uint32_t resource) const;

    /// Whether this connection made it.
    bool isOwn(std::uint32_t resource) const;

    /// Asks for events of the root window beside those asked for by others here.
    void selectOnRoot(std::uint32_t eventMask);

    /// Asks for these beside those as well until `owner` asks for others, such as for none, or
    /// ends.
    void selectOnRootFor(const X11EventListener &owner, std::uint32_t eventMask);

    /// Calls `handler` on the main thread once all the requests with these sequence numbers are
    /// answered, one reply each in the same order; never when `owner` is gone by then.
    void whenReplied(X11EventListener &owner, std::vector<unsigned> sequences,
                     std::function<void(Replies)> handler);

    /// Blocks until every handler of `whenReplied` has run. For the start only.
    void waitForReplies();

    /// False for a forwarded or networked display.
    bool isLocal() const;

    /// Calls `handler` once, in a turn of the loop of its own, when the server went away.
    [[nodiscard]] Subscription subscribeToLoss(std::function<void()> handler);

private:
    friend class X11EventListener;

    struct Disconnect {
        void operator()(xcb_connection_t *connection) const { xcb_disconnect(connection); }
    };
    using Handle = std::unique_ptr<xcb_connection_t, Disconnect>;

    struct Pending {
        X11EventListener *owner = nullptr;
        std::vector<unsigned> sequences;
        Replies replies;
        std::function<void(Replies)> handler;
    };

    X11Connection(Handle connection, QByteArray display, xcb_screen_t &screen, int screenNumber);

    void addListener(X11EventListener &listener);
    void removeListener(X11EventListener &listener);
    void selectOnRoot();
    void beforeBlocking();
    void dispatch();
    void deliver(xcb_generic_event_t &event);
    bool deliverNextReply();
    void noteLoss();

    Handle m_connection;
    QByteArray m_display;
    xcb_screen_t *m_screen;
    int m_screenNumber;
    X11Atoms m_atoms;
    std::uint32_t m_rootMask = 0;
    std::map<const X11EventListener *, std::uint32_t> m_rootMasks; // beside that, for a while
    std::vector<X11EventListener *> m_listeners;
    std::deque<Pending> m_pending;
    X11Reply<xcb_generic_event_t> m_early;
    ChangePublisher m_loss;
    bool m_isLost = false;
    QSocketNotifier m_notifier;
    QObject m_context; // last: its end cuts the signals before the rest goes
};

} // namespace zeph
