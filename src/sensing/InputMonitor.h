// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>
#include <QtGlobal>

#include <memory>
#include <optional>
#include <vector>

namespace zeph {

class Clock;
class InputEventTap;
class InputEvents;
struct InputEvent;

/// Counts keystrokes, clicks and pointer travel from a listen-only tap. It never learns what was
/// typed, and its totals go on counting across midnight. Main thread only.
class InputMonitor {
public:
    InputMonitor(const Clock &clock, InputEvents &events);
    ~InputMonitor();
    InputMonitor(const InputMonitor &) = delete;
    InputMonitor &operator=(const InputMonitor &) = delete;

    /// Makes the tap unless there is one. A refusal prints one line and changes nothing.
    void start();
    bool hasTap() const { return m_tap != nullptr; }

    /// Key-downs of the last `window` seconds, as a rate a minute. Forgets the older ones.
    double keystrokesPerMinute(double window);

    qint64 totalKeystrokes() const { return m_totalKeystrokes; }
    qint64 mouseClicks() const { return m_mouseClicks; }
    double mouseDistanceMeters() const { return m_mouseDistanceMeters; }

    /// How many key-down times are held at the moment.
    std::size_t recentKeystrokeCount() const { return m_recentKeystrokes.size(); }

    /// Adds the totals stored of today.
    void restore(qint64 totalKeystrokes, qint64 mouseClicks, double mouseDistanceMeters);

private:
    void handle(const InputEvent &event);
    void addKeystroke();
    void addTravel(QPointF point);

    const Clock &m_clock;
    InputEvents &m_events;
    qint64 m_totalKeystrokes = 0;
    qint64 m_mouseClicks = 0;
    double m_mouseDistanceMeters = 0;
    std::vector<double> m_recentKeystrokes; // seconds since 1970, in the order they came
    std::optional<QPointF> m_lastMousePoint;
    std::unique_ptr<InputEventTap> m_tap; // last, so that it ends before what its handler uses
};

} // namespace zeph
