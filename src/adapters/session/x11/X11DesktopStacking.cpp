// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11DesktopStacking.h"

#include "adapters/session/x11/X11Connection.h"
#include "adapters/session/x11/X11DesktopHints.h"
#include "adapters/session/x11/X11DesktopWindows.h"
#include "adapters/session/x11/X11WindowManager.h"

#include <algorithm>
#include <iterator>

namespace zeph {

namespace {

constexpr int kRestacksPerBurst = 5;

} // namespace

X11DesktopStacking::X11DesktopStacking(X11Connection &connection, X11DesktopWindows &windows,
                                       const X11WindowManager &manager)
    : m_connection(connection),
      m_windows(windows),
      m_manager(manager),
      m_limit([this] {
          if (!m_ours.empty()) {
              m_windows.read();
          }
      }),
      m_notices(windows.subscribe([this] { restack(); })) {}

void X11DesktopStacking::add(xcb_window_t window, DesktopPlace place) {
    m_ours.insert_or_assign(window, place);
}

void X11DesktopStacking::remove(xcb_window_t window) {
    m_ours.erase(window);
}

bool X11DesktopStacking::hasWindowManager() const {
    return m_manager.facts().has_value();
}

/// Theirs go beneath ours, as it is not known which of them lies highest by now.
void X11DesktopStacking::layDown(xcb_window_t window) {
    lower(m_connection, window);
    const auto ours = m_ours.find(window);
    if (ours == m_ours.end() || ours->second != DesktopPlace::aboveDesktops) {
        return;
    }
    for (const xcb_window_t other : desktopsOfOthers()) {
        lower(m_connection, other);
    }
}

void X11DesktopStacking::restack() {
    const auto others = desktopsOfOthers();
    for (const auto &[window, place] : m_ours) {
        switch (place) {
        case DesktopPlace::aboveDesktops:
            keepAbove(window, others);
            break;
        case DesktopPlace::belowDesktops:
            keepBelow(window, others);
            break;
        case DesktopPlace::beneathManaged:
            break;
        }
    }
    keepBeneath();
}

/// Each lies on the one before it: windows that were all lowered would change places each time.
/// Where one lies already this changes nothing, and nobody is told.
void X11DesktopStacking::keepBeneath() {
    xcb_window_t lowest = XCB_WINDOW_NONE;
    for (const auto &[window, place] : m_ours) {
        if (place != DesktopPlace::beneathManaged) {
            continue;
        }
        if (lowest == XCB_WINDOW_NONE) {
            lower(m_connection, window);
        } else {
            stackAbove(m_connection, window, lowest);
        }
        lowest = window;
    }
}

std::vector<xcb_window_t> X11DesktopStacking::desktopsOfOthers() const {
    std::vector<xcb_window_t> others;
    std::copy_if(m_windows.all().begin(), m_windows.all().end(), std::back_inserter(others),
                 [this](xcb_window_t window) { return !m_ours.contains(window); });
    return others;
}

/// From the topmost desktop of another program downwards, everything of ours is hidden.
void X11DesktopStacking::keepAbove(xcb_window_t window, const std::vector<xcb_window_t> &others) {
    const auto &order = m_windows.all();
    const auto ours = std::find(order.begin(), order.end(), window);
    const auto hiding = std::find_first_of(ours, order.end(), others.begin(), others.end());
    if (ours == order.end() || hiding == order.end() || !mayRestack()) {
        return;
    }
    if (canAsk()) {
        askToRestack(m_connection, window, XCB_STACK_MODE_ABOVE);
        return;
    }
    std::for_each(hiding, order.end(), [&](xcb_window_t other) {
        if (!m_ours.contains(other)) {
            lower(m_connection, other);
        }
    });
}

void X11DesktopStacking::keepBelow(xcb_window_t window, const std::vector<xcb_window_t> &others) {
    const auto &order = m_windows.all();
    const auto ours = std::find(order.begin(), order.end(), window);
    const auto hidden = std::find_first_of(order.begin(), ours, others.begin(), others.end());
    if (ours == order.end() || hidden == ours || !mayRestack()) {
        return;
    }
    if (canAsk()) {
        askToRestack(m_connection, window, XCB_STACK_MODE_BELOW);
    } else {
        lower(m_connection, window);
    }
}

bool X11DesktopStacking::canAsk() const {
    return m_manager.facts() && m_manager.facts()->knowsRestacking;
}

bool X11DesktopStacking::mayRestack() {
    return m_limit.allows(kRestacksPerBurst * static_cast<int>(m_ours.size()));
}

} // namespace zeph
