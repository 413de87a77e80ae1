// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11WindowManager.h"

#include "adapters/session/x11/X11Properties.h"

#include <algorithm>
#include <utility>

namespace zeph {

namespace {

constexpr std::uint32_t kMostSupported = 1024;
constexpr std::uint32_t kLongestManagerName = 64; // in 4-byte units

} // namespace

X11WindowManager::X11WindowManager(X11Connection &connection) : X11EventListener(connection) {
    connection.selectOnRoot(XCB_EVENT_MASK_PROPERTY_CHANGE);
    read();
}

Subscription X11WindowManager::subscribe(std::function<void()> handler) {
    return m_changes.subscribe(std::move(handler));
}

void X11WindowManager::handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) {
    if (isNews(kind, event)) {
        read();
    }
}

bool X11WindowManager::isNews(std::uint8_t kind, const xcb_generic_event_t &event) const {
    if (kind == XCB_DESTROY_NOTIFY) {
        // Its end is told before the replies on what it was, where both come at once.
        const xcb_window_t gone = eventAs<xcb_destroy_notify_event_t>(event).window;
        return gone == m_looked || (m_facts && gone == m_facts->window);
    }
    if (kind != XCB_PROPERTY_NOTIFY) {
        return false;
    }
    const auto &notify = eventAs<xcb_property_notify_event_t>(event);
    return notify.window == connection().root() &&
           (notify.atom == connection().atom(X11Atom::netSupportingWmCheck) ||
            notify.atom == connection().atom(X11Atom::netSupported));
}

void X11WindowManager::read() {
    // A manager that starts writes both: they are read together.
    if (std::exchange(m_isReading, true)) {
        m_readsAgain = true;
        return;
    }
    const unsigned check =
        requestProperty(connection(), connection().root(),
                        connection().atom(X11Atom::netSupportingWmCheck), XCB_ATOM_WINDOW, 1);
    const unsigned supported =
        requestProperty(connection(), connection().root(), connection().atom(X11Atom::netSupported),
                        XCB_ATOM_ATOM, kMostSupported);
    connection().whenReplied(
        *this, {check, supported}, [this](const X11Connection::Replies &replies) {
            const auto windows = windowsIn(propertyIn(replies[0]));
            if (windows.empty() || windows.front() == XCB_WINDOW_NONE) {
                take(std::nullopt);
                return;
            }
            const auto atoms = atomsIn(propertyIn(replies[1]));
            const auto knows = [&](X11Atom atom) {
                return std::find(atoms.begin(), atoms.end(), connection().atom(atom)) !=
                       atoms.end();
            };
            readWindow({.window = windows.front(),
                        .knowsDesktopType = knows(X11Atom::netWmWindowTypeDesktop),
                        .knowsRestacking = knows(X11Atom::netRestackWindow),
                        .tellsWorkArea = knows(X11Atom::netWorkarea)});
        });
}

/// A manager that was killed leaves its note on the root, but its own window is gone.
void X11WindowManager::readWindow(Facts facts) {
    // Before it is looked at, so that its end is told whenever it comes.
    m_looked = facts.window;
    const std::uint32_t mask = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection().xcb(), facts.window, XCB_CW_EVENT_MASK, &mask);
    const unsigned check =
        requestProperty(connection(), facts.window,
                        connection().atom(X11Atom::netSupportingWmCheck), XCB_ATOM_WINDOW, 1);
    const unsigned name =
        requestProperty(connection(), facts.window, connection().atom(X11Atom::netWmName),
                        XCB_ATOM_ANY, kLongestManagerName);
    connection().whenReplied(
        *this, {check, name},
        [this, facts = std::move(facts)](const X11Connection::Replies &replies) mutable {
            const auto windows = windowsIn(propertyIn(replies[0]));
            if (windows.empty() || windows.front() != facts.window) {
                take(std::nullopt);
                return;
            }
            facts.name = QString::fromUtf8(bytesIn(propertyIn(replies[1])));
            take(std::move(facts));
        });
}

void X11WindowManager::take(std::optional<Facts> facts) {
    m_isReading = false;
    const bool isChanged = std::exchange(m_facts, std::move(facts)) != m_facts;
    const bool isFirst = !std::exchange(m_isKnown, true);
    if (std::exchange(m_readsAgain, false)) {
        read();
    }
    if (isChanged || isFirst) {
        m_changes.send();
    }
}

} // namespace zeph
