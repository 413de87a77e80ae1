// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11DesktopStacking.h"

#include "adapters/session/x11/X11Connection.h"
#include "adapters/session/x11/X11DesktopHints.h"
#include "adapters/session/x11/X11Properties.h"

#include <algorithm>
#include <utility>

namespace zeph {

namespace {

// Another program that insists on being on top would otherwise keep both of us busy for ever.
constexpr int kRestacksPerBurst = 5;
constexpr int kBurstMilliseconds = 2000;
constexpr int kLongestBurstMilliseconds = 64000;

constexpr std::uint32_t kMostWindows = 4096;
constexpr std::uint32_t kMostTypes = 16;

} // namespace

X11DesktopStacking::X11DesktopStacking(X11Connection &connection) : X11EventListener(connection) {
    connection.selectOnRoot(XCB_EVENT_MASK_PROPERTY_CHANGE);
    m_burst.setSingleShot(true);
    m_burst.setInterval(kBurstMilliseconds);
    QObject::connect(&m_burst, &QTimer::timeout, &m_burst, [this] { endBurst(); });
}

void X11DesktopStacking::add(xcb_window_t window) {
    m_ours.push_back(window);
}

void X11DesktopStacking::remove(xcb_window_t window) {
    std::erase(m_ours, window);
}

bool X11DesktopStacking::hasWindowManager() const {
    auto &x11 = connection();
    const xcb_atom_t check = x11.atom(X11Atom::netSupportingWmCheck);
    const auto onRoot = windowsIn(readNow(x11, x11.root(), check, XCB_ATOM_WINDOW, 1).get());
    // A manager that was killed leaves its note on the root, but its own window is gone.
    return !onRoot.empty() &&
           windowsIn(readNow(x11, onRoot.front(), check, XCB_ATOM_WINDOW, 1).get()) == onRoot;
}

void X11DesktopStacking::handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) {
    if (kind != XCB_PROPERTY_NOTIFY || m_ours.empty()) {
        return;
    }
    const auto &notify = eventAs<xcb_property_notify_event_t>(event);
    if (notify.window == connection().root() &&
        notify.atom == connection().atom(X11Atom::netClientListStacking)) {
        readOrder();
    }
}

void X11DesktopStacking::readOrder() {
    const unsigned request = requestProperty(connection(), connection().root(),
                                             connection().atom(X11Atom::netClientListStacking),
                                             XCB_ATOM_WINDOW, kMostWindows);
    connection().whenReplied(*this, {request}, [this](const X11Connection::Replies &replies) {
        takeOrder(windowsIn(propertyIn(replies[0])));
    });
}

void X11DesktopStacking::takeOrder(std::vector<xcb_window_t> order) {
    m_order = std::move(order);
    std::erase_if(m_isDesktop, [this](const auto &known) {
        return std::find(m_order.begin(), m_order.end(), known.first) == m_order.end();
    });
    std::vector<xcb_window_t> unknown;
    std::copy_if(
        m_order.begin(), m_order.end(), std::back_inserter(unknown),
        [this](xcb_window_t window) { return !isOurs(window) && !m_isDesktop.contains(window); });
    if (unknown.empty()) {
        restack();
    } else {
        readTypes(unknown);
    }
}

void X11DesktopStacking::readTypes(const std::vector<xcb_window_t> &windows) {
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
            restack();
        });
}

void X11DesktopStacking::restack() {
    const auto topDesktop =
        std::find_if(m_order.rbegin(), m_order.rend(), [this](xcb_window_t window) {
            const auto known = m_isDesktop.find(window);
            return known != m_isDesktop.end() && known->second;
        });
    // From the topmost desktop of another program downwards, everything of ours is hidden.
    const std::vector<xcb_window_t> beneath(topDesktop, m_order.rend());
    for (const xcb_window_t window : m_ours) {
        if (std::find(beneath.begin(), beneath.end(), window) != beneath.end() && mayRestack()) {
            askToRaise(connection(), window);
        }
    }
}

bool X11DesktopStacking::mayRestack() {
    if (!m_burst.isActive()) {
        m_burst.start();
        m_inBurst = 0;
    }
    return ++m_inBurst <= mostInBurst();
}

int X11DesktopStacking::mostInBurst() const {
    return kRestacksPerBurst * static_cast<int>(m_ours.size());
}

/// Looks once more when a burst was cut off, as no notice comes any more when both sides rest.
/// With a program that goes on and on that happens ever more seldom.
void X11DesktopStacking::endBurst() {
    const bool wasCutOff = m_inBurst > mostInBurst();
    m_burst.setInterval(wasCutOff ? std::min(2 * m_burst.interval(), kLongestBurstMilliseconds)
                                  : kBurstMilliseconds);
    if (wasCutOff && !m_ours.empty()) {
        readOrder();
    }
}

bool X11DesktopStacking::isOurs(xcb_window_t window) const {
    return std::find(m_ours.begin(), m_ours.end(), window) != m_ours.end();
}

} // namespace zeph
