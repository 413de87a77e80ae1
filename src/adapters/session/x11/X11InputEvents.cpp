// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11InputEvents.h"

#include "adapters/session/x11/X11Connection.h"
#include "adapters/session/x11/X11InputTap.h"
#include "ports/Consent.h"

#include <xcb/screensaver.h>
#include <xcb/xinput.h>

#include <cmath>
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

X11InputEvents::X11InputEvents(X11Connection &connection, const Screens &screens, Consent &consent)
    : m_connection(connection), m_screens(screens), m_consent(consent) {}

bool X11InputEvents::isTrusted() const {
    return m_consent.isGranted();
}

Subscription X11InputEvents::subscribeToTrust(std::function<void()> handler) {
    return m_consent.subscribe(std::move(handler));
}

double X11InputEvents::secondsSinceLastEvent() const {
    if (!m_sinceAsked.isValid() || m_sinceAsked.hasExpired(kFreshMilliseconds)) {
        m_idleSeconds = askForIdleTime();
        m_sinceAsked.start();
    }
    return m_idleSeconds;
}

bool X11InputEvents::isQuietForMoreThan(double seconds) const {
    const std::chrono::milliseconds limit(std::llround(seconds * kMillisecondsPerSecond));
    if (!m_hasNoAlarm && (!m_alarm || m_alarm->limit() != limit)) {
        m_alarm = X11IdleAlarm::create(m_connection, limit);
        m_hasNoAlarm = !m_alarm;
    }
    return m_alarm ? m_alarm->isQuiet() : seconds < secondsSinceLastEvent();
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
    if (!isTrusted() || !speaksInput2(m_connection)) {
        return nullptr;
    }
    return std::make_unique<X11InputTap>(m_connection, m_screens, m_consent, std::move(handler));
}

} // namespace zeph
