// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11DesktopWindows.h"

#include "adapters/session/x11/X11Connection.h"
#include "adapters/session/x11/X11Properties.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace zeph {

namespace {

constexpr std::uint32_t kMostStackedWindows = 4096;
constexpr std::uint32_t kMostTypes = 16;

} // namespace

X11DesktopWindows::X11DesktopWindows(X11Connection &connection) : X11EventListener(connection) {
    connection.selectOnRoot(XCB_EVENT_MASK_PROPERTY_CHANGE);
    read();
}

Subscription X11DesktopWindows::subscribe(std::function<void()> handler) {
    return m_changes.subscribe(std::move(handler));
}

void X11DesktopWindows::handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) {
    if (kind != XCB_PROPERTY_NOTIFY) {
        return;
    }
    const auto &notify = eventAs<xcb_property_notify_event_t>(event);
    if (notify.window == connection().root() &&
        notify.atom == connection().atom(X11Atom::netClientListStacking)) {
        read();
    }
}

void X11DesktopWindows::read() {
    const unsigned request = requestProperty(connection(), connection().root(),
                                             connection().atom(X11Atom::netClientListStacking),
                                             XCB_ATOM_WINDOW, kMostStackedWindows);
    connection().whenReplied(*this, {request}, [this](const X11Connection::Replies &replies) {
        takeOrder(windowsIn(propertyIn(replies[0])));
    });
}

void X11DesktopWindows::takeOrder(std::vector<xcb_window_t> order) {
    m_order = std::move(order);
    std::erase_if(m_isDesktop, [this](const auto &known) {
        return std::find(m_order.begin(), m_order.end(), known.first) == m_order.end();
    });
    std::vector<xcb_window_t> unknown;
    std::copy_if(m_order.begin(), m_order.end(), std::back_inserter(unknown),
                 [this](xcb_window_t window) { return !m_isDesktop.contains(window); });
    if (unknown.empty()) {
        publish();
    } else {
        readTypes(unknown);
    }
}

void X11DesktopWindows::readTypes(const std::vector<xcb_window_t> &windows) {
    std::vector<unsigned> requests;
    requests.reserve(windows.size());
    for (const xcb_window_t window : windows) {
        requests.push_back(requestProperty(connection(), window,
                                           connection().atom(X11Atom::netWmWindowType),
                                           XCB_ATOM_ATOM, kMostTypes));
    }
    connection().whenReplied(
        *this, std::move(requests), [this, windows](const X11Connection::Replies &replies) {
            for (std::size_t i = 0; i < windows.size(); ++i) {
                const auto types = atomsIn(propertyIn(replies[i]));
                m_isDesktop[windows[i]] =
                    std::find(types.begin(), types.end(),
                              connection().atom(X11Atom::netWmWindowTypeDesktop)) != types.end();
            }
            publish();
        });
}

void X11DesktopWindows::publish() {
    m_all.clear();
    std::copy_if(m_order.begin(), m_order.end(), std::back_inserter(m_all),
                 [this](xcb_window_t window) {
                     const auto known = m_isDesktop.find(window);
                     return known != m_isDesktop.end() && known->second;
                 });
    m_changes.send();
}

} // namespace zeph
