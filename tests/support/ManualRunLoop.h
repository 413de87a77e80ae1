// SPDX-License-Identifier: MIT
#pragma once

#include "ports/RunLoop.h"
#include "support/ManualClock.h"

#include <algorithm>
#include <deque>
#include <list>

namespace zeph {

/// A run loop driven by hand: `advance` moves the clock and runs what falls due, in order.
class ManualRunLoop : public RunLoop {
public:
    explicit ManualRunLoop(ManualClock &clock) : m_clock(clock) {}

    std::unique_ptr<RunLoopTimer> repeat(std::chrono::milliseconds period,
                                         std::function<void()> tick) override {
        auto entry = std::make_shared<Entry>();
        entry->period = std::chrono::duration<double>(period).count();
        entry->due = m_elapsed + entry->period;
        entry->action = std::move(tick);
        entry->repeats = true;
        m_entries.push_back(entry);
        return std::make_unique<Timer>(entry);
    }

    void post(std::function<void()> task) override { m_posted.push_back(std::move(task)); }

    void after(std::chrono::milliseconds delay, std::function<void()> task) override {
        auto entry = std::make_shared<Entry>();
        entry->due = m_elapsed + std::chrono::duration<double>(delay).count();
        entry->action = std::move(task);
        m_entries.push_back(entry);
    }

    /// Runs everything posted so far, and what that posts.
    void drain() {
        while (!m_posted.empty()) {
            const auto task = std::move(m_posted.front());
            m_posted.pop_front();
            task();
        }
    }

    /// Lets `seconds` pass, on the clock as well.
    void advance(double seconds) {
        const double end = m_elapsed + seconds;
        drain();
        while (const auto entry = nextDue(end)) {
            m_clock.advance(entry->due - m_elapsed);
            m_elapsed = entry->due;
            entry->repeats ? void(entry->due += entry->period) : void(entry->live = false);
            entry->action();
            drain();
        }
        m_clock.advance(end - m_elapsed);
        m_elapsed = end;
    }

    std::size_t timerCount() const {
        return static_cast<std::size_t>(
            std::count_if(m_entries.begin(), m_entries.end(),
                          [](const auto &entry) { return entry->live && entry->repeats; }));
    }

private:
    struct Entry {
        double period = 0;
        double due = 0;
        std::function<void()> action;
        bool repeats = false;
        bool live = true;
    };

    class Timer : public RunLoopTimer {
    public:
        explicit Timer(std::shared_ptr<Entry> entry) : m_entry(std::move(entry)) {}
        ~Timer() override { m_entry->live = false; }

    private:
        std::shared_ptr<Entry> m_entry;
    };

    std::shared_ptr<Entry> nextDue(double end) {
        m_entries.remove_if([](const auto &entry) { return !entry->live; });
        const auto first =
            std::min_element(m_entries.begin(), m_entries.end(),
                             [](const auto &a, const auto &b) { return a->due < b->due; });
        // Sums of periods such as 0.1 drift; a nanosecond of grace keeps "after 3 s" at 3 s.
        return first != m_entries.end() && (*first)->due <= end + 1e-9 ? *first : nullptr;
    }

    ManualClock &m_clock;
    double m_elapsed = 0;
    std::list<std::shared_ptr<Entry>> m_entries;
    std::deque<std::function<void()>> m_posted;
};

} // namespace zeph
