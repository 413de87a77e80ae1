// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11MonitorWorkAreas.h"

#include "adapters/session/x11/WorkAreas.h"
#include "adapters/session/x11/X11Properties.h"

#include <algorithm>
#include <utility>

namespace zeph {

namespace {

constexpr std::uint32_t kMostHints = 1024;
constexpr std::uint32_t kMostAreaNumbers = 4 * 64; // of 64 monitors

// The server keeps each name that it is asked for until it ends, so a wild number makes none.
constexpr std::uint32_t kMostWorkspaces = 256;

std::uint32_t workspaceIn(const X11AnyReply &reply) {
    const auto numbers = numbersIn(propertyIn(reply));
    // Written no earlier than at the first switch.
    return numbers.empty() || numbers.front() >= kMostWorkspaces ? 0 : numbers.front();
}

} // namespace

X11MonitorWorkAreas::X11MonitorWorkAreas(X11Connection &connection) : X11EventListener(connection) {
    connection.selectOnRoot(XCB_EVENT_MASK_PROPERTY_CHANGE);
    read();
}

std::optional<QRect> X11MonitorWorkAreas::on(const QRect &monitor) const {
    return areaOn(monitor, m_areas);
}

void X11MonitorWorkAreas::handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) {
    if (kind != XCB_PROPERTY_NOTIFY) {
        return;
    }
    const auto &notify = eventAs<xcb_property_notify_event_t>(event);
    if (notify.window != connection().root()) {
        return;
    }
    const bool isTold = m_property != XCB_ATOM_NONE;
    if (notify.atom == connection().atom(X11Atom::netSupported) ||
        (isTold && (notify.atom == m_property ||
                    notify.atom == connection().atom(X11Atom::netCurrentDesktop)))) {
        read();
    }
}

void X11MonitorWorkAreas::read() {
    // A window manager writes those of all workspaces at a time: what comes meanwhile is read
    // together.
    if (std::exchange(m_isReading, true)) {
        m_readsAgain = true;
        return;
    }
    // What one that is gone has left on the root is not in force any more.
    const unsigned supported =
        requestProperty(connection(), connection().root(), connection().atom(X11Atom::netSupported),
                        XCB_ATOM_ATOM, kMostHints);
    const unsigned current =
        requestProperty(connection(), connection().root(),
                        connection().atom(X11Atom::netCurrentDesktop), XCB_ATOM_CARDINAL, 1);
    connection().whenReplied(
        *this, {supported, current},
        [this](const X11Connection::Replies &replies) { findProperty(replies); });
}

void X11MonitorWorkAreas::findProperty(const X11Connection::Replies &replies) {
    const auto atoms = atomsIn(propertyIn(replies[0]));
    if (std::find(atoms.begin(), atoms.end(), connection().atom(X11Atom::gtkWorkareas)) ==
        atoms.end()) {
        m_property = XCB_ATOM_NONE;
        take({});
        return;
    }
    const QByteArray name = "_GTK_WORKAREAS_D" + QByteArray::number(workspaceIn(replies[1]));
    const unsigned number =
        xcb_intern_atom(connection().xcb(), 0, static_cast<std::uint16_t>(name.size()),
                        name.constData())
            .sequence;
    connection().whenReplied(*this, {number}, [this](const X11Connection::Replies &answers) {
        const auto *answer = static_cast<const xcb_intern_atom_reply_t *>(answers[0].get());
        m_property = answer ? answer->atom : xcb_atom_t{XCB_ATOM_NONE};
        readAreas();
    });
}

void X11MonitorWorkAreas::readAreas() {
    connection().whenReplied(*this,
                             {requestProperty(connection(), connection().root(), m_property,
                                              XCB_ATOM_CARDINAL, kMostAreaNumbers)},
                             [this](const X11Connection::Replies &replies) {
                                 take(rectanglesIn(numbersIn(propertyIn(replies[0]))));
                             });
}

void X11MonitorWorkAreas::take(std::vector<QRect> areas) {
    m_isReading = false;
    const bool isChanged = std::exchange(m_areas, std::move(areas)) != m_areas;
    if (std::exchange(m_readsAgain, false)) {
        read();
    }
    if (isChanged && m_handler) {
        m_handler();
    }
}

} // namespace zeph
