// SPDX-License-Identifier: MIT
#include "sensing/InputMonitor.h"

#include "ports/Clock.h"
#include "ports/InputEvents.h"

#include <cmath>
#include <cstdio>

namespace zeph {

namespace {

constexpr double metersPerPoint = 0.00028;

// The list is trimmed whenever the rate is asked for. Should nobody ask, it is halved here. The
// half that stays still holds a thousand keystrokes for every second of a minute, more than a
// keyboard can report, so no rate over a minute ever misses one.
constexpr std::size_t keystrokeLimit = 131'072;

} // namespace

InputMonitor::InputMonitor(const Clock &clock, InputEvents &events)
    : m_clock(clock), m_events(events) {}

InputMonitor::~InputMonitor() = default;

void InputMonitor::start() {
    if (m_tap || !m_events.canCountKeys()) {
        return;
    }
    m_tap = m_events.makeTap([this](const InputEvent &event) { handle(event); });
    if (!m_tap) {
        std::puts("[Zeph] event tap not created (Accessibility not granted yet)");
        std::fflush(stdout);
        return;
    }
    m_tap->enable();
}

void InputMonitor::restore(qint64 totalKeystrokes, qint64 mouseClicks, double mouseDistanceMeters) {
    m_totalKeystrokes += totalKeystrokes;
    m_mouseClicks += mouseClicks;
    m_mouseDistanceMeters += mouseDistanceMeters;
}

void InputMonitor::handle(const InputEvent &event) {
    switch (event.kind) {
    case InputEventKind::leftMouseDown:
    case InputEventKind::rightMouseDown:
        ++m_mouseClicks;
        break;
    case InputEventKind::mouseMoved:
    case InputEventKind::leftMouseDragged:
    case InputEventKind::rightMouseDragged:
        addTravel(event.location);
        break;
    case InputEventKind::keyDown:
        addKeystroke();
        break;
    case InputEventKind::tapDisabledByTimeout:
    case InputEventKind::tapDisabledByUserInput:
        if (m_tap) {
            m_tap->enable();
        }
        break;
    }
}

void InputMonitor::addKeystroke() {
    ++m_totalKeystrokes;
    if (m_recentKeystrokes.size() >= keystrokeLimit) {
        m_recentKeystrokes.erase(m_recentKeystrokes.begin(),
                                 m_recentKeystrokes.begin() + keystrokeLimit / 2);
    }
    m_recentKeystrokes.push_back(m_clock.now().secondsSince1970);
}

void InputMonitor::addTravel(QPointF point) {
    if (m_lastMousePoint) {
        const QPointF way = point - *m_lastMousePoint;
        m_mouseDistanceMeters += std::sqrt(way.x() * way.x() + way.y() * way.y()) * metersPerPoint;
    }
    m_lastMousePoint = point;
}

double InputMonitor::keystrokesPerMinute(double window) {
    const double now = m_clock.now().secondsSince1970;
    const double cutOff = now - window;
    // Those later than now were pressed before the clock was set back.
    std::erase_if(m_recentKeystrokes,
                  [cutOff, now](double time) { return time < cutOff || time > now; });
    return 60.0 / window * static_cast<double>(m_recentKeystrokes.size());
}

} // namespace zeph
