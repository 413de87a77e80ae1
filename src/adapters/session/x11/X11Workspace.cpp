// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11Workspace.h"

#include "adapters/apps/DesktopEntries.h"
#include "adapters/session/x11/X11Connection.h"
#include "adapters/session/x11/X11Properties.h"
#include "adapters/session/x11/X11WindowReader.h"

#include <algorithm>
#include <utility>

namespace zeph {

namespace {

std::optional<QString> present(const QString &text) {
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

} // namespace

X11Workspace::X11Workspace(X11Connection &connection, DesktopEntries &entries)
    : X11EventListener(connection), m_entries(entries), m_entriesChanges(entries.subscribe([this] {
          if (m_activeWindow != XCB_WINDOW_NONE) {
              readWindow(m_activeWindow);
          }
      })) {
    connection.selectOnRoot(XCB_EVENT_MASK_PROPERTY_CHANGE);
    readActiveWindow();
    connection.waitForReplies();
}

Subscription
X11Workspace::subscribeToActivations(std::function<void(const RunningApplication &)> handler) {
    return m_activations.subscribe([this, handler = std::move(handler)] { handler(*m_front); });
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
    } else if (notify.atom == connection().atom(X11Atom::netClientList) &&
               m_activeWindow != XCB_WINDOW_NONE) {
        checkThatWindowLives();
    }
}

void X11Workspace::readActiveWindow() {
    const unsigned request =
        requestProperty(connection(), connection().root(),
                        connection().atom(X11Atom::netActiveWindow), XCB_ATOM_WINDOW, 1);
    connection().whenReplied(*this, {request}, [this](const X11Connection::Replies &replies) {
        const auto windows = windowsIn(propertyIn(replies[0]));
        const xcb_window_t window =
            windows.empty() ? xcb_window_t{XCB_WINDOW_NONE} : windows.front();
        if (std::exchange(m_activeWindow, window) == window) {
            return; // some window managers write the same value again and again
        }
        if (window == XCB_WINDOW_NONE) {
            setFront(std::nullopt);
        } else {
            readWindow(window);
        }
    });
}

void X11Workspace::readWindow(xcb_window_t window) {
    const auto take = [this, window](const X11Connection::Replies &replies) {
        if (window != m_activeWindow) {
            return; // the next one is on its way
        }
        const WindowFacts facts = windowFacts(connection(), replies);
        if (facts.isDesktop || facts.isOurs) {
            setFront(std::nullopt);
        } else {
            findApplication(window, facts.hints);
        }
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
            m_activeWindow = XCB_WINDOW_NONE;
            setFront(std::nullopt);
        }
    });
}

void X11Workspace::setFront(std::optional<RunningApplication> front) {
    if (m_front == front) {
        return;
    }
    m_front = std::move(front);
    if (m_front) {
        m_activations.send();
    }
}

/// While the entries are read anew the application before stays in front, so that the new one does
/// not count as two.
void X11Workspace::findApplication(xcb_window_t window, const ApplicationHints &hints) {
    m_entries.find(
        hints, m_questions.whileAlive([this, window, windowClass = present(hints.windowClass)](
                                          const auto *installed) {
            if (m_activeWindow == window) {
                setFront(installed ? RunningApplication{installed->identifier,
                                                        installed->entry.name, installed->path}
                                   : RunningApplication{windowClass, windowClass, std::nullopt});
            }
        }));
}

} // namespace zeph
