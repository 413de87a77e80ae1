// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>
#include <optional>

namespace zeph {

/// What a program does that has lost its display.
enum class AfterLoss { endsForGood, startsAnew };

/// `sinceReturn` is how long the display was there, in a run that had lost it before; absent in
/// others. What goes again at once would come and go without end.
AfterLoss afterLoss(std::optional<std::chrono::milliseconds> sinceReturn);

/// The loss of the display under the running program. Neither toolkit nor drivers survive it, so
/// the process starts itself anew, where it waits for the display before anything else: with its
/// name on the bus and its lock given up, so that another start can take its place. Main thread
/// only.
class DisplayLoss {
public:
    using Clock = std::chrono::steady_clock;

    /// Takes the word of the run before, that this one is to wait, out of the environment, which
    /// other programs inherit. `arguments` are those of the process, which outlive this.
    explicit DisplayLoss(char **arguments, std::function<Clock::time_point()> now = Clock::now);

    /// Whether the run before this one lost its display.
    bool isReturn() const { return m_isReturn; }

    /// The display is there, and everything begins.
    void noteStart() { m_start = m_now(); }

    /// The display is gone.
    void note();

    /// Whether the process is to start itself anew once everything is saved.
    bool isToStartAnew() const { return m_isToStartAnew; }

    /// Does so if it is to; returns only where it is not, or the system refuses. Who was told to
    /// end while everything was saved is not to.
    void startAnewIfLost(bool isToldToEnd) const;

private:
    char **m_arguments;
    std::function<Clock::time_point()> m_now;
    bool m_isReturn;
    bool m_isToStartAnew = false;
    Clock::time_point m_start;
};

} // namespace zeph
