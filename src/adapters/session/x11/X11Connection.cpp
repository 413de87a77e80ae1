// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11Connection.h"

#include "adapters/session/x11/X11EventListener.h"

#include <QAbstractEventDispatcher>

#include <sys/socket.h>
#include <xcb/damage.h>
#include <xcb/randr.h>
#include <xcb/record.h>
#include <xcb/res.h>
#include <xcb/screensaver.h>
#include <xcb/shape.h>
#include <xcb/shm.h>
#include <xcb/sync.h>
#include <xcb/xcbext.h>
#include <xcb/xfixes.h>
#include <xcb/xinput.h>

#include <algorithm>
#include <cstring>
#include <numeric>
#include <utility>

namespace zeph {

namespace {

constexpr std::uint8_t kSentByClient = 0x80;

xcb_extension_t *handleOf(X11Extension extension) {
    switch (extension) {
    case X11Extension::shm:
        return &xcb_shm_id;
    case X11Extension::shape:
        return &xcb_shape_id;
    case X11Extension::xfixes:
        return &xcb_xfixes_id;
    case X11Extension::input:
        return &xcb_input_id;
    case X11Extension::screensaver:
        return &xcb_screensaver_id;
    case X11Extension::record:
        return &xcb_record_id;
    case X11Extension::randr:
        return &xcb_randr_id;
    case X11Extension::sync:
        return &xcb_sync_id;
    case X11Extension::damage:
        return &xcb_damage_id;
    case X11Extension::resources:
        return &xcb_res_id;
    }
    return nullptr;
}

xcb_screen_t *screenAt(xcb_connection_t *connection, int number) {
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; screens.rem > 0 && number > 0; --number) {
        xcb_screen_next(&screens);
    }
    return screens.rem > 0 ? screens.data : nullptr;
}

} // namespace

std::unique_ptr<X11Connection> X11Connection::open(const QByteArray &display) {
    int number = 0;
    Handle connection(xcb_connect(display.isEmpty() ? nullptr : display.constData(), &number));
    if (xcb_connection_has_error(connection.get()) != 0) {
        return nullptr;
    }
    xcb_screen_t *screen = screenAt(connection.get(), number);
    if (!screen) {
        return nullptr;
    }
    for (const auto extension :
         {X11Extension::shm, X11Extension::shape, X11Extension::xfixes, X11Extension::input,
          X11Extension::screensaver, X11Extension::record, X11Extension::randr, X11Extension::sync,
          X11Extension::damage, X11Extension::resources}) {
        xcb_prefetch_extension_data(connection.get(), handleOf(extension));
    }
    return std::unique_ptr<X11Connection>(
        new X11Connection(std::move(connection), display, *screen, number));
}

X11Connection::X11Connection(Handle connection, QByteArray display, xcb_screen_t &screen,
                             int screenNumber)
    : m_connection(std::move(connection)),
      m_display(std::move(display)),
      m_screen(&screen),
      m_screenNumber(screenNumber),
      m_atoms(m_connection.get()),
      m_notifier(xcb_get_file_descriptor(m_connection.get()), QSocketNotifier::Read) {
    QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_context, [this] { dispatch(); });
    if (auto *dispatcher = QAbstractEventDispatcher::instance()) {
        QObject::connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, &m_context,
                         [this] { beforeBlocking(); });
    }
}

X11Connection::~X11Connection() = default;

xcb_atom_t X11Connection::intern(const QByteArray &name) const {
    const X11Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        xcb(), xcb_intern_atom(xcb(), 0, static_cast<std::uint16_t>(name.size()), name.data()),
        nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

const xcb_query_extension_reply_t *X11Connection::extension(X11Extension extension) const {
    const auto *data = xcb_get_extension_data(xcb(), handleOf(extension));
    return data && data->present != 0 ? data : nullptr;
}

std::uint32_t X11Connection::clientOf(std::uint32_t resource) const {
    return resource & ~xcb_get_setup(xcb())->resource_id_mask;
}

bool X11Connection::isOwn(std::uint32_t resource) const {
    return clientOf(resource) == clientOf(xcb_get_setup(xcb())->resource_id_base);
}

void X11Connection::selectOnRoot(std::uint32_t eventMask) {
    m_rootMask |= eventMask;
    selectOnRoot();
}

void X11Connection::selectOnRootFor(const X11EventListener &owner, std::uint32_t eventMask) {
    if (std::exchange(m_rootMasks[&owner], eventMask) != eventMask) {
        selectOnRoot();
    }
}

void X11Connection::selectOnRoot() {
    const std::uint32_t all =
        std::accumulate(m_rootMasks.begin(), m_rootMasks.end(), m_rootMask,
                        [](std::uint32_t mask, const auto &own) { return mask | own.second; });
    xcb_change_window_attributes(xcb(), root(), XCB_CW_EVENT_MASK, &all);
}

void X11Connection::whenReplied(X11EventListener &owner, std::vector<unsigned> sequences,
                                std::function<void(Replies)> handler) {
    m_pending.push_back({&owner, std::move(sequences), {}, std::move(handler)});
}

void X11Connection::waitForReplies() {
    while (!m_pending.empty()) {
        // Any request with a reply of its own, answered in order, proves all earlier ones answered.
        const X11Reply<xcb_get_input_focus_reply_t> fence(
            xcb_get_input_focus_reply(xcb(), xcb_get_input_focus(xcb()), nullptr));
        while (deliverNextReply()) {
        }
        if (xcb_connection_has_error(xcb()) != 0) {
            return;
        }
    }
}

bool X11Connection::isLocal() const {
    sockaddr_storage address{};
    socklen_t length = sizeof address;
    // The C interface takes every kind of address through this one pointer type.
    auto *generic = reinterpret_cast<sockaddr *>(&address);
    return getpeername(xcb_get_file_descriptor(xcb()), generic, &length) == 0 &&
           address.ss_family == AF_UNIX;
}

Subscription X11Connection::subscribeToLoss(std::function<void()> handler) {
    return m_loss.subscribe(std::move(handler));
}

void X11Connection::addListener(X11EventListener &listener) {
    m_listeners.push_back(&listener);
}

void X11Connection::removeListener(X11EventListener &listener) {
    std::erase(m_listeners, &listener);
    if (m_rootMasks.erase(&listener) > 0) {
        selectOnRoot();
    }
    std::erase_if(m_pending, [&](const Pending &pending) {
        if (pending.owner != &listener) {
            return false;
        }
        for (std::size_t i = pending.replies.size(); i < pending.sequences.size(); ++i) {
            xcb_discard_reply(xcb(), pending.sequences[i]);
        }
        return true;
    });
}

void X11Connection::beforeBlocking() {
    if (m_isLost) {
        return;
    }
    xcb_flush(xcb());
    // A blocking request elsewhere may have read events into xcb's queue; the socket is silent
    // about those.
    if (!m_early) {
        m_early.reset(xcb_poll_for_queued_event(xcb()));
    }
    const bool lost = xcb_connection_has_error(xcb()) != 0;
    if (m_early || lost || deliverNextReply()) {
        QMetaObject::invokeMethod(
            &m_context, [this] { dispatch(); }, Qt::QueuedConnection);
    }
}

void X11Connection::dispatch() {
    if (m_isLost) {
        return;
    }
    if (const auto early = std::exchange(m_early, nullptr)) {
        deliver(*early);
    }
    while (const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(xcb())}) {
        deliver(*event);
    }
    while (deliverNextReply()) {
    }
    xcb_flush(xcb());
    if (xcb_connection_has_error(xcb()) != 0) {
        noteLoss();
    }
}

void X11Connection::deliver(xcb_generic_event_t &event) {
    const auto kind = static_cast<std::uint8_t>(event.response_type & ~kSentByClient);
    if (kind == 0) {
        return; // an error of a request on a window that went away
    }
    const auto listeners = m_listeners;
    for (X11EventListener *listener : listeners) {
        // One listener's handler may have ended another.
        if (std::find(m_listeners.begin(), m_listeners.end(), listener) != m_listeners.end()) {
            listener->handleEvent(kind, event);
        }
    }
    // It may have held which key was pressed, which is not to stay in memory.
    explicit_bzero(&event, sizeof event);
}

bool X11Connection::deliverNextReply() {
    if (m_pending.empty()) {
        return false;
    }
    Pending &next = m_pending.front();
    while (next.replies.size() < next.sequences.size()) {
        void *reply = nullptr;
        xcb_generic_error_t *error = nullptr;
        if (xcb_poll_for_reply(xcb(), next.sequences[next.replies.size()], &reply, &error) == 0) {
            return false;
        }
        X11Reply<xcb_generic_error_t>{error}.reset();
        next.replies.emplace_back(reply);
    }
    Pending answered = std::move(next);
    m_pending.pop_front();
    answered.handler(std::move(answered.replies));
    return true;
}

void X11Connection::noteLoss() {
    m_isLost = true;
    m_notifier.setEnabled(false);
    m_pending.clear();
    QMetaObject::invokeMethod(
        &m_context, [this] { m_loss.send(); }, Qt::QueuedConnection);
}

} // namespace zeph
