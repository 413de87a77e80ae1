// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11Selection.h"

#include "adapters/session/x11/X11Connection.h"

#include <xcb/xfixes.h>

#include <utility>

namespace zeph {

X11Selection::X11Selection(X11Connection &connection, const QByteArray &name)
    : X11EventListener(connection), m_selection(connection.intern(name)) {
    if (const auto *xfixes = connection.extension(X11Extension::xfixes)) {
        m_firstEvent = xfixes->first_event;
        // The server refuses every other request of the extension before this one.
        const auto version = xcb_xfixes_query_version(connection.xcb(), 2, 0);
        xcb_discard_reply(connection.xcb(), version.sequence);
        xcb_xfixes_select_selection_input(
            connection.xcb(), connection.root(), m_selection,
            XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    }
    const X11Reply<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(
        connection.xcb(), xcb_get_selection_owner(connection.xcb(), m_selection), nullptr));
    m_owner = owner ? owner->owner : xcb_window_t{XCB_WINDOW_NONE};
}

Subscription X11Selection::subscribe(std::function<void()> handler) {
    return m_changes.subscribe(std::move(handler));
}

void X11Selection::handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) {
    if (m_firstEvent < 0 || kind != m_firstEvent + XCB_XFIXES_SELECTION_NOTIFY) {
        return;
    }
    const auto &notify = eventAs<xcb_xfixes_selection_notify_event_t>(event);
    if (notify.selection == m_selection && std::exchange(m_owner, notify.owner) != notify.owner) {
        m_changes.send();
    }
}

} // namespace zeph
