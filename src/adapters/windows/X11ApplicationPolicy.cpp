// SPDX-License-Identifier: MIT
#include "adapters/windows/X11ApplicationPolicy.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPointer>
#include <QWindow>
#include <QtGui/qguiapplication_platform.h>

#include <xcb/xcb.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iterator>
#include <memory>
#include <string_view>
#include <vector>

namespace zeph {

namespace {

constexpr std::uint32_t mostStates = 64;

// Of a message to the window manager.
constexpr std::uint32_t removeState = 0;
constexpr std::uint32_t addState = 1;
constexpr std::uint32_t fromApplication = 1;
// For what the user asked for in the tray, in a menu or by a start: managers keep an application
// that wants to come forward by itself in the background.
constexpr std::uint32_t fromUser = 2;

xcb_connection_t *toolkitConnection() {
    const auto *native = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return native == nullptr ? nullptr : native->connection();
}

struct Release {
    void operator()(void *reply) const { std::free(reply); }
};
template <typename Reply>
using Held = std::unique_ptr<Reply, Release>;

xcb_atom_t atomOf(xcb_connection_t *connection, std::string_view name) {
    const Held<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        connection,
        xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data()),
        nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

bool isOfOurs(const QWindow &window) {
    return window.isTopLevel() && (window.type() == Qt::Window || window.type() == Qt::Dialog);
}

xcb_window_t numberOf(const QWindow &window) {
    return static_cast<xcb_window_t>(window.winId());
}

void tellManager(xcb_connection_t *connection, xcb_window_t root, xcb_window_t window,
                 xcb_atom_t type, const std::array<std::uint32_t, 5> &words) {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = type;
    std::copy(words.begin(), words.end(), std::begin(message.data.data32));
    const void *const wire = &message;
    xcb_send_event(connection, 0, root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   static_cast<const char *>(wire));
    xcb_flush(connection);
}

} // namespace

X11ApplicationPolicy::X11ApplicationPolicy() : m_connection(toolkitConnection()) {
    if (m_connection == nullptr) {
        return;
    }
    m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
    m_netWmState = atomOf(m_connection, "_NET_WM_STATE");
    m_skipTaskbar = atomOf(m_connection, "_NET_WM_STATE_SKIP_TASKBAR");
    m_netActiveWindow = atomOf(m_connection, "_NET_ACTIVE_WINDOW");
    qGuiApp->installEventFilter(this);
}

X11ApplicationPolicy::~X11ApplicationPolicy() = default;

void X11ApplicationPolicy::setActivationPolicy(ActivationPolicy policy) {
    m_policy = policy;
    if (m_connection == nullptr) {
        return;
    }
    for (const QWindow *window : QGuiApplication::topLevelWindows()) {
        if (isOfOurs(*window) && window->handle() != nullptr && window->isVisible()) {
            askForState(*window);
        }
    }
}

void X11ApplicationPolicy::activate(QWindow &window) {
    if (!window.isVisible()) {
        return;
    }
    window.raise();
    if (m_connection == nullptr) {
        window.requestActivate();
    } else {
        tellManager(m_connection, m_root, numberOf(window), m_netActiveWindow,
                    {fromUser, XCB_CURRENT_TIME, XCB_WINDOW_NONE, 0, 0});
    }
}

bool X11ApplicationPolicy::eventFilter(QObject *object, QEvent *event) {
    // Each time before the window goes on the screen: managers erase the state of one that is
    // taken off it.
    if (event->type() == QEvent::Show && object->isWindowType()) {
        auto &window = static_cast<QWindow &>(*object);
        if (isOfOurs(window) && window.handle() != nullptr) {
            writeState(window);
            // And once more after that, since one that is still busy taking the window off erases
            // what was written for this time.
            QMetaObject::invokeMethod(
                this,
                [this, shown = QPointer<QWindow>(&window)] {
                    if (shown && shown->isVisible()) {
                        askForState(*shown);
                    }
                },
                Qt::QueuedConnection);
        }
    }
    return QObject::eventFilter(object, event);
}

/// Of a window that is off the screen; the toolkit keeps what it finds there.
void X11ApplicationPolicy::writeState(const QWindow &window) const {
    const xcb_window_t number = numberOf(window);
    const Held<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        m_connection,
        xcb_get_property(m_connection, 0, number, m_netWmState, XCB_ATOM_ATOM, 0, mostStates),
        nullptr));
    std::vector<xcb_atom_t> states;
    if (reply && reply->format == 32) {
        const auto *first = static_cast<const xcb_atom_t *>(xcb_get_property_value(reply.get()));
        states.assign(first, first + reply->value_len);
    }
    std::erase(states, m_skipTaskbar);
    if (m_policy == ActivationPolicy::accessory) {
        states.push_back(m_skipTaskbar);
    }
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, number, m_netWmState, XCB_ATOM_ATOM,
                        32, static_cast<std::uint32_t>(states.size()), states.data());
}

/// Of a window that is on the screen, whose state is the window manager's.
void X11ApplicationPolicy::askForState(const QWindow &window) const {
    const bool isAccessory = m_policy == ActivationPolicy::accessory;
    tellManager(m_connection, m_root, numberOf(window), m_netWmState,
                {isAccessory ? addState : removeState, m_skipTaskbar, 0, fromApplication, 0});
}

} // namespace zeph
