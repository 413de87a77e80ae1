// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11InputEvents.h"

#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11InputTap.h"

#include <xcb/screensaver.h>
#include <xcb/xinput.h>

#include <utility>

namespace zeph {

namespace {

// Several parts ask within one tick.
constexpr qint64 kFreshMilliseconds = 500;

constexpr double kMillisecondsPerSecond = 1000;

bool speaksInput2(X11Connection &connection) {
    if (!connection.extension(X11Extension::input)) {
        return false;
    }
    const X11Reply<xcb_input_xi_query_version_reply_t> version(xcb_input_xi_query_version_reply(
        connection.xcb(), xcb_input_xi_query_version(connection.xcb(), 2, 2), nullptr));
    return version && version->major_version >= 2;
}

} // namespace

X11InputEvents::X11InputEvents(X11Connection &connection, const Screens &screens, RunLoop &runLoop,
                               std::function<bool()> isTrusted)
    : m_connection(connection),
      m_screens(screens),
      m_runLoop(runLoop),
      m_isTrusted(std::move(isTrusted)) {}

double X11InputEvents::secondsSinceLastEvent() const {
    if (!m_sinceAsked.isValid() || m_sinceAsked.hasExpired(kFreshMilliseconds)) {
        m_idleSeconds = askForIdleTime();
        m_sinceAsked.start();
    }
    return m_idleSeconds;
}

bool X11InputEvents::isQuietForMoreThan(double seconds) const {
    // Without any input since the last answer the quiet would have grown by the time since then,
    // and it can't have grown by more: until that is enough, each question would wake us up twice
    // for a reply that is known.
    if (m_sinceAsked.isValid()) {
        const double passed = static_cast<double>(m_sinceAsked.elapsed()) / kMillisecondsPerSecond;
        if (m_idleSeconds + passed <= seconds) {
            return false;
        }
    }
    return seconds < secondsSinceLastEvent();
}

double X11InputEvents::askForIdleTime() const {
    if (!m_connection.extension(X11Extension::screensaver)) {
        return 0;
    }
    const X11Reply<xcb_screensaver_query_info_reply_t> info(xcb_screensaver_query_info_reply(
        m_connection.xcb(), xcb_screensaver_query_info(m_connection.xcb(), m_connection.root()),
        nullptr));
    return info ? info->ms_since_user_input / kMillisecondsPerSecond : 0;
}

std::unique_ptr<InputEventTap>
X11InputEvents::makeTap(std::function<void(const InputEvent &)> handler) {
    if (!m_isTrusted() || !speaksInput2(m_connection)) {
        return nullptr;
    }
    return std::make_unique<X11InputTap>(m_connection, m_screens, m_runLoop, m_isTrusted,
                                         std::move(handler));
}

} // namespace zeph
