// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11IconCover.h"

#include "adapters/session/x11/MappingOrder.h"
#include "adapters/session/x11/X11Connection.h"
#include "adapters/session/x11/X11DesktopProgram.h"
#include "adapters/session/x11/X11DrawingWay.h"
#include "adapters/session/x11/X11Properties.h"
#include "adapters/session/x11/X11WindowManager.h"

#include <algorithm>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr std::uint32_t kMostListedWindows = 4096;

} // namespace

X11IconCover::X11IconCover(X11Connection &connection, const Parties &parties)
    : X11EventListener(connection), m_parties(parties) {
    connection.selectOnRoot(XCB_EVENT_MASK_PROPERTY_CHANGE);
    const auto news = [this] { follow(); };
    m_news.push_back(parties.manager.subscribe(news));
    m_news.push_back(parties.program.subscribe(news));
    m_news.push_back(parties.way.subscribe(news));
}

Subscription X11IconCover::subscribe(std::function<void()> handler) {
    return m_changes.subscribe(std::move(handler));
}

void X11IconCover::handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) {
    if (kind != XCB_PROPERTY_NOTIFY) {
        return;
    }
    const auto &notify = eventAs<xcb_property_notify_event_t>(event);
    if (notify.window == connection().root() &&
        notify.atom == connection().atom(X11Atom::netClientList)) {
        follow();
    }
}

std::vector<xcb_window_t> X11IconCover::icons() const {
    const auto &program = m_parties.program.found();
    return program && program->kind == DesktopProgram::nemoDesktop ? program->windows
                                                                   : std::vector<xcb_window_t>();
}

bool X11IconCover::isOrderOfMapping() const {
    const auto &manager = m_parties.manager.facts();
    return manager && manager->name.contains("muffin"_L1, Qt::CaseInsensitive) &&
           m_parties.way.now().mechanism == DrawingMechanism::underDesktopProgram;
}

/// The list of clients tells the order of mapping, the other one that of stacking.
void X11IconCover::follow() {
    if (m_isReading) {
        m_readsAgain = true;
        return;
    }
    if (icons().empty() || !isOrderOfMapping()) {
        take({.icons = icons()});
        return;
    }
    m_isReading = true;
    const unsigned request = requestProperty(connection(), connection().root(),
                                             connection().atom(X11Atom::netClientList),
                                             XCB_ATOM_WINDOW, kMostListedWindows);
    connection().whenReplied(*this, {request}, [this](const X11Connection::Replies &replies) {
        m_isReading = false;
        if (std::exchange(m_readsAgain, false)) {
            follow();
            return;
        }
        const auto order = windowsIn(propertyIn(replies[0]));
        std::vector<xcb_window_t> ours;
        std::copy_if(order.begin(), order.end(), std::back_inserter(ours),
                     [this](xcb_window_t window) { return connection().isOwn(window); });
        take({icons(), isMappedAfterAny(order, ours, icons())});
    });
}

void X11IconCover::take(Facts facts) {
    if (m_facts != facts) {
        m_facts = std::move(facts);
        m_changes.send();
    }
}

} // namespace zeph
