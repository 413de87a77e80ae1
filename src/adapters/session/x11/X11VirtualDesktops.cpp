// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11VirtualDesktops.h"

#include "adapters/session/x11/X11Properties.h"

#include <algorithm>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr std::uint32_t kMostNameLongs = 4096;

// Nobody walks through more of them; a larger number is an error of whoever wrote it.
constexpr std::uint32_t kMostDesktops = 256;

std::optional<std::uint32_t> numberIn(const X11AnyReply &reply) {
    const auto values = numbersIn(propertyIn(reply));
    return values.empty() ? std::nullopt : std::optional(values.front());
}

} // namespace

X11VirtualDesktops::X11VirtualDesktops(X11Connection &connection) : X11EventListener(connection) {
    connection.selectOnRoot(XCB_EVENT_MASK_PROPERTY_CHANGE);
    read();
}

Subscription X11VirtualDesktops::subscribe(std::function<void()> handler) {
    return m_changes.subscribe(std::move(handler));
}

void X11VirtualDesktops::handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) {
    if (kind != XCB_PROPERTY_NOTIFY) {
        return;
    }
    const auto &notify = eventAs<xcb_property_notify_event_t>(event);
    if (notify.window == connection().root() &&
        (notify.atom == connection().atom(X11Atom::netNumberOfDesktops) ||
         notify.atom == connection().atom(X11Atom::netCurrentDesktop) ||
         notify.atom == connection().atom(X11Atom::netDesktopNames))) {
        read();
    }
}

void X11VirtualDesktops::read() {
    // A window manager that adds one writes all three: they are read together.
    if (std::exchange(m_isReading, true)) {
        m_readsAgain = true;
        return;
    }
    const auto ask = [this](X11Atom property, xcb_atom_t type, std::uint32_t longs) {
        return requestProperty(connection(), connection().root(), connection().atom(property), type,
                               longs);
    };
    connection().whenReplied(
        *this,
        {ask(X11Atom::netNumberOfDesktops, XCB_ATOM_CARDINAL, 1),
         ask(X11Atom::netCurrentDesktop, XCB_ATOM_CARDINAL, 1),
         ask(X11Atom::netDesktopNames, connection().atom(X11Atom::utf8String), kMostNameLongs)},
        [this](const X11Connection::Replies &replies) { take(replies); });
}

void X11VirtualDesktops::take(const X11Connection::Replies &replies) {
    m_isReading = false;
    const std::uint32_t count = std::min(numberIn(replies[0]).value_or(0), kMostDesktops);
    // One manager writes the current one no earlier than at the first switch.
    const std::uint32_t current = numberIn(replies[1]).value_or(0);
    // There may be more or fewer names than workspaces.
    const auto names = bytesIn(propertyIn(replies[2])).split('\0');
    std::vector<ManagedDisplay> displays;
    if (count > 0) {
        ManagedDisplay &all = displays.emplace_back();
        all.identifier = u"all displays"_s;
        for (std::uint32_t index = 0; index < count; ++index) {
            all.spaces.push_back(
                {.id = index,
                 .name = QString::fromUtf8(names.value(static_cast<qsizetype>(index)))});
        }
        if (current < count) {
            all.currentSpace = current;
        }
    }
    if (std::exchange(m_readsAgain, false)) {
        read();
    }
    if (std::exchange(m_displays, displays) != displays) {
        m_changes.send();
    }
}

} // namespace zeph
