// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11UnlistedWindows.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr std::size_t kRepliesPerFrame = 2;

std::vector<xcb_window_t> childrenIn(const X11AnyReply &reply) {
    const auto *tree = static_cast<const xcb_query_tree_reply_t *>(reply.get());
    if (!tree) {
        return {};
    }
    const xcb_window_t *first = xcb_query_tree_children(tree);
    return {first, first + xcb_query_tree_children_length(tree)};
}

bool isOnScreen(const X11AnyReply &reply) {
    const auto *attributes = static_cast<const xcb_get_window_attributes_reply_t *>(reply.get());
    return attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
}

} // namespace

X11UnlistedWindows::X11UnlistedWindows(X11Connection &connection, std::function<void()> handler)
    : X11EventListener(connection),
      m_handler(std::move(handler)),
      m_manager(connection),
      m_managers(m_manager.subscribe([this] { follow(); })) {}

void X11UnlistedWindows::follow() {
    const auto &facts = m_manager.facts();
    m_isWanted = facts ? !facts->tellsWorkArea : m_manager.isKnown();
    // Under others nobody wakes us whenever a window is moved.
    connection().selectOnRootFor(*this, m_isWanted ? XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY : 0);
    if (m_isWanted) {
        read();
    } else if (!m_isReading) {
        take({});
    }
}

void X11UnlistedWindows::handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) {
    const bool isNews =
        kind == XCB_MAP_NOTIFY
            ? eventAs<xcb_map_notify_event_t>(event).event == connection().root()
            : kind == XCB_UNMAP_NOTIFY &&
                  eventAs<xcb_unmap_notify_event_t>(event).event == connection().root();
    if (m_isWanted && isNews) {
        read();
    }
}

void X11UnlistedWindows::read() {
    // A change of workspaces takes many windows off and puts others on: they are read together.
    if (std::exchange(m_isReading, true)) {
        m_readsAgain = true;
        return;
    }
    const unsigned tree = xcb_query_tree(connection().xcb(), connection().root()).sequence;
    connection().whenReplied(*this, {tree}, [this](const X11Connection::Replies &replies) {
        readFrames(childrenIn(replies[0]));
    });
}

void X11UnlistedWindows::readFrames(const std::vector<xcb_window_t> &frames) {
    std::vector<unsigned> requests;
    requests.reserve(frames.size() * kRepliesPerFrame);
    for (const xcb_window_t frame : frames) {
        requests.push_back(xcb_get_window_attributes(connection().xcb(), frame).sequence);
        requests.push_back(xcb_query_tree(connection().xcb(), frame).sequence);
    }
    connection().whenReplied(
        *this, std::move(requests), [this, frames](const X11Connection::Replies &replies) {
            std::vector<xcb_window_t> windows;
            for (std::size_t i = 0; i < frames.size(); ++i) {
                if (isOnScreen(replies[kRepliesPerFrame * i])) {
                    const auto inside = childrenIn(replies[kRepliesPerFrame * i + 1]);
                    windows.push_back(frames[i]);
                    windows.insert(windows.end(), inside.begin(), inside.end());
                }
            }
            take(std::move(windows));
        });
}

void X11UnlistedWindows::take(std::vector<xcb_window_t> windows) {
    m_isReading = false;
    const auto &manager = m_manager.facts();
    std::erase_if(windows, [&](xcb_window_t one) {
        return !m_isWanted || connection().isOwn(one) ||
               (manager && connection().clientOf(one) == connection().clientOf(manager->window));
    });
    const bool isChanged = std::exchange(m_all, std::move(windows)) != m_all;
    if (std::exchange(m_readsAgain, false) && m_isWanted) {
        read();
    }
    if (isChanged) {
        m_handler();
    }
}

} // namespace zeph
