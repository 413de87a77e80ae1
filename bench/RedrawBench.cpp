// SPDX-License-Identifier: MIT
#include "BenchDay.h"
#include "BenchSettings.h"

#include <QRegion>

namespace zeph {

namespace {

constexpr QSizeF points(1920, 1080);

/// A window of the day without a window system.
class Redraw {
public:
    explicit Redraw(double scale)
        : m_scale(scale), m_frame((points * scale).toSize(), QImage::Format_RGB32) {
        m_frame.fill(Qt::black);
    }

    /// What a window does in each turn of the loop that follows a change.
    QRegion display() { return renderer.render(day.view.scene(points, false), m_frame, m_scale); }

    BenchDay day;
    SceneRenderer renderer{day.painter};

private:
    double m_scale;
    QImage m_frame;
};

void redrawWithNothingChanged(benchmark::State &state) {
    Redraw redraw(1);
    redraw.display();
    for ([[maybe_unused]] auto turn : state) {
        if (!redraw.display().isEmpty()) {
            state.SkipWithError("something was painted although nothing changed");
            return;
        }
    }
}

/// Repeating events, some of them of many years ago, the calendar's dearest question.
std::vector<CountdownEvent> oldCountdowns(Date now) {
    using enum CountdownRecurrence;
    std::vector<CountdownEvent> events;
    for (int number = 0; number < 50; ++number) {
        events.push_back({QUuid(), QStringLiteral("Event %1").arg(number),
                          now - (3 + number % 15) * 365 * 86400.0,
                          number % 5 == 4 ? yearly : (number % 5 == 3 ? monthly : weekly)});
    }
    return events;
}

void redrawWithOldCountdowns(benchmark::State &state) {
    Redraw redraw(1);
    redraw.day.preferences.setCountdowns(oldCountdowns(*redraw.day.state.now));
    redraw.display();
    for ([[maybe_unused]] auto turn : state) {
        if (!redraw.display().isEmpty()) {
            state.SkipWithError("something was painted although nothing changed");
            return;
        }
    }
}

void redrawWithOneChipChanged(benchmark::State &state) {
    constexpr int largestChip = 400 * 120; // pixels
    Redraw redraw(1);
    redraw.display();
    qint64 paintedBefore = redraw.renderer.paintedPixels();
    SystemLoad load = *redraw.day.state.load;
    for ([[maybe_unused]] auto turn : state) {
        load.cpuUsage = load.cpuUsage < 0.2 ? 0.23 : 0.17;
        redraw.day.state.load = load;
        const QRegion painted = redraw.display();
        const QRect bounds = painted.boundingRect();
        if (painted.isEmpty() || bounds.width() * bounds.height() > largestChip) {
            state.SkipWithError("not just the chip was painted");
            return;
        }
    }
    paintedBefore = redraw.renderer.paintedPixels() - paintedBefore;
    state.counters["pixels"] =
        benchmark::Counter(static_cast<double>(paintedBefore), benchmark::Counter::kAvgIterations);
}

/// The argument: device pixels a point, so 1 for 1080p and 2 for 4K.
void fullRepaint(benchmark::State &state) {
    Redraw redraw(static_cast<double>(state.range(0)));
    redraw.display();
    for ([[maybe_unused]] auto turn : state) {
        redraw.renderer.invalidate();
        benchmark::DoNotOptimize(redraw.display());
    }
}

BENCHMARK(redrawWithNothingChanged)->Apply(repeated);
BENCHMARK(redrawWithOldCountdowns)->Apply(repeated);
BENCHMARK(redrawWithOneChipChanged)->Apply(repeated);
BENCHMARK(fullRepaint)->Arg(1)->Arg(2)->Apply(repeated);

} // namespace

} // namespace zeph
