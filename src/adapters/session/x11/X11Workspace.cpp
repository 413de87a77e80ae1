// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11Workspace.h"

#include "adapters/session/x11/X11Connection.h"
#include "adapters/session/x11/X11Properties.h"
#include "adapters/session/x11/X11WindowReader.h"

#include <algorithm>
#include <utility>

namespace zeph {

X11Workspace::X11Workspace(X11Connection &connection, DesktopEntries &entries)
    : X11EventListener(connection),
      m_front(entries),
      m_frontChanges(m_front.subscribe([this] { m_changes.send(); })) {
    connection.selectOnRoot(XCB_EVENT_MASK_PROPERTY_CHANGE);
    readActiveWindow();
    connection.waitForReplies();
}

Subscription
X11Workspace::subscribeToActivations(std::function<void(const RunningApplication &)> handler) {
    return m_front.subscribeToActivations(std::move(handler));
}

Subscription X11Workspace::subscribe(std::function<void()> handler) {
    return m_changes.subscribe(std::move(handler));
}

void X11Workspace::handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) {
    if (kind != XCB_PROPERTY_NOTIFY) {
        return;
    }
    const auto &notify = eventAs<xcb_property_notify_event_t>(event);
    if (notify.window != connection().root()) {
        return;
    }
    if (notify.atom == connection().atom(X11Atom::netActiveWindow)) {
        readActiveWindow();
    } else if (notify.atom == connection().atom(X11Atom::netClientList) && hasActiveWindow()) {
        checkThatWindowLives();
    }
}

void X11Workspace::readActiveWindow() {
    const unsigned request =
        requestProperty(connection(), connection().root(),
                        connection().atom(X11Atom::netActiveWindow), XCB_ATOM_WINDOW, 1);
    connection().whenReplied(*this, {request}, [this](const X11Connection::Replies &replies) {
        const auto windows = windowsIn(propertyIn(replies[0]));
        setActiveWindow(windows.empty() ? xcb_window_t{XCB_WINDOW_NONE} : windows.front());
    });
}

void X11Workspace::setActiveWindow(xcb_window_t window) {
    const xcb_window_t former = std::exchange(m_activeWindow, window);
    if (former == window) {
        return; // some window managers write the same value again and again
    }
    if (window != XCB_WINDOW_NONE) {
        readWindow(window);
    } else {
        m_front.set(std::nullopt);
    }
    if (window == XCB_WINDOW_NONE || former == XCB_WINDOW_NONE) {
        m_changes.send();
    }
}

void X11Workspace::readWindow(xcb_window_t window) {
    const auto take = [this, window](const X11Connection::Replies &replies) {
        if (window != m_activeWindow) {
            return; // the next one is on its way
        }
        const WindowFacts facts = windowFacts(connection(), replies);
        m_front.set(facts.isDesktop || facts.isOurs ? std::nullopt : std::optional(facts.hints));
    };
    connection().whenReplied(*this, requestWindowFacts(connection(), window), take);
}

void X11Workspace::checkThatWindowLives() {
    // Some window managers go on naming the last window after it was closed.
    constexpr std::uint32_t kMostWindows = 4096;
    const unsigned request =
        requestProperty(connection(), connection().root(),
                        connection().atom(X11Atom::netClientList), XCB_ATOM_WINDOW, kMostWindows);
    connection().whenReplied(*this, {request}, [this](const X11Connection::Replies &replies) {
        const auto windows = windowsIn(propertyIn(replies[0]));
        if (std::find(windows.begin(), windows.end(), m_activeWindow) == windows.end()) {
            setActiveWindow(XCB_WINDOW_NONE);
        }
    });
}

} // namespace zeph
