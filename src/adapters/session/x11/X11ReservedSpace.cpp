// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11ReservedSpace.h"

#include "adapters/session/x11/WorkAreas.h"
#include "adapters/session/x11/X11Properties.h"

#include <algorithm>
#include <utility>

namespace zeph {

namespace {

constexpr std::uint32_t kMostListedWindows = 4096;
constexpr std::uint32_t kMostWindowTypes = 16;
constexpr std::uint32_t kPartialStrutNumbers = 12;
constexpr std::uint32_t kPlainStrutNumbers = 4;
constexpr std::uint32_t kWorkAreaNumbers = 4;
constexpr std::size_t kRepliesPerWindow = 3;

// The first desktop's stands for all.
std::optional<QRect> workAreaIn(const X11AnyReply &reply) {
    const auto areas = rectanglesIn(numbersIn(propertyIn(reply)));
    return areas.empty() ? std::nullopt : std::optional(areas.front());
}

} // namespace

X11ReservedSpace::X11ReservedSpace(X11Connection &connection)
    : X11EventListener(connection), m_unlisted(connection, [this] { read(); }) {
    connection.selectOnRoot(XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    read();
    connection.waitForReplies();
}

QMargins X11ReservedSpace::margins(const QRect &monitor) const {
    return reservedMargins(monitor, m_extent.screen, m_struts);
}

void X11ReservedSpace::setChangeHandler(std::function<void()> handler) {
    m_handler = std::move(handler);
}

void X11ReservedSpace::handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) {
    const bool isNews =
        kind == XCB_PROPERTY_NOTIFY
            ? tellsOfStruts(eventAs<xcb_property_notify_event_t>(event))
            : kind == XCB_CONFIGURE_NOTIFY &&
                  eventAs<xcb_configure_notify_event_t>(event).window == connection().root();
    if (isNews) {
        read();
    }
}

bool X11ReservedSpace::tellsOfStruts(const xcb_property_notify_event_t &notify) const {
    const auto isOneOf = [&](X11Atom one, X11Atom other) {
        return notify.atom == connection().atom(one) || notify.atom == connection().atom(other);
    };
    return notify.window == connection().root()
               ? isOneOf(X11Atom::netClientList, X11Atom::netWorkarea)
               : isOneOf(X11Atom::netWmStrut, X11Atom::netWmStrutPartial);
}

void X11ReservedSpace::read() {
    // News that come in the meantime are read together.
    if (std::exchange(m_isReading, true)) {
        m_readsAgain = true;
        return;
    }
    const unsigned size = xcb_get_geometry(connection().xcb(), connection().root()).sequence;
    const unsigned list = requestProperty(connection(), connection().root(),
                                          connection().atom(X11Atom::netClientList),
                                          XCB_ATOM_WINDOW, kMostListedWindows);
    const unsigned workArea =
        requestProperty(connection(), connection().root(), connection().atom(X11Atom::netWorkarea),
                        XCB_ATOM_CARDINAL, kWorkAreaNumbers);
    connection().whenReplied(*this, {size, list, workArea},
                             [this](const X11Connection::Replies &replies) {
                                 readStruts({sizeIn(replies[0]), workAreaIn(replies[2])},
                                            withUnlisted(windowsIn(propertyIn(replies[1]))));
                             });
}

std::vector<xcb_window_t> X11ReservedSpace::withUnlisted(std::vector<xcb_window_t> windows) const {
    for (const xcb_window_t window : m_unlisted.all()) {
        if (std::find(windows.begin(), windows.end(), window) == windows.end()) {
            windows.push_back(window);
        }
    }
    return windows;
}

void X11ReservedSpace::readStruts(const Extent &extent, std::vector<xcb_window_t> windows) {
    std::vector<unsigned> requests;
    requests.reserve(windows.size() * kRepliesPerWindow);
    const auto ask = [&](xcb_window_t window, X11Atom property, xcb_atom_t type,
                         std::uint32_t longs) {
        requests.push_back(
            requestProperty(connection(), window, connection().atom(property), type, longs));
    };
    for (const xcb_window_t window : windows) {
        ask(window, X11Atom::netWmStrutPartial, XCB_ATOM_CARDINAL, kPartialStrutNumbers);
        ask(window, X11Atom::netWmStrut, XCB_ATOM_CARDINAL, kPlainStrutNumbers);
        ask(window, X11Atom::netWmWindowType, XCB_ATOM_ATOM, kMostWindowTypes);
    }
    connection().whenReplied(
        *this, std::move(requests),
        [this, extent, windows = std::move(windows)](const X11Connection::Replies &replies) {
            takeStruts(extent, windows, replies);
        });
}

void X11ReservedSpace::takeStruts(const Extent &extent, const std::vector<xcb_window_t> &windows,
                                  const X11Connection::Replies &replies) {
    m_isReading = false;
    std::erase_if(m_watched, [&](xcb_window_t window) {
        return std::find(windows.begin(), windows.end(), window) == windows.end();
    });
    std::vector<Strut> struts;
    for (std::size_t i = 0; i < windows.size(); ++i) {
        const std::size_t first = i * kRepliesPerWindow;
        const auto own = strutsIn(numbersIn(propertyIn(replies[first])),
                                  numbersIn(propertyIn(replies[first + 1])));
        struts.insert(struts.end(), own.begin(), own.end());
        if (!own.empty() || isDock(replies[first + 2])) {
            watch(windows[i]);
        }
    }
    const bool isChanged = extent != m_extent || struts != m_struts;
    m_extent = extent;
    m_struts = std::move(struts);
    if (std::exchange(m_readsAgain, false)) {
        read();
    }
    if (isChanged && m_handler) {
        m_handler();
    }
}

bool X11ReservedSpace::isDock(const X11AnyReply &types) const {
    const auto atoms = atomsIn(propertyIn(types));
    return std::find(atoms.begin(), atoms.end(), connection().atom(X11Atom::netWmWindowTypeDock)) !=
           atoms.end();
}

/// Other windows are not watched: their titles change all the time.
void X11ReservedSpace::watch(xcb_window_t window) {
    if (m_watched.insert(window).second) {
        const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_change_window_attributes(connection().xcb(), window, XCB_CW_EVENT_MASK, &mask);
        m_readsAgain = true; // what changed before it was watched
    }
}

} // namespace zeph
