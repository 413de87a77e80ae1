// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11Screens.h"

#include "adapters/session/x11/ScreenScale.h"
#include "adapters/session/x11/VisibleFrame.h"

#include <algorithm>
#include <utility>

namespace zeph {

X11Screens::X11Screens(X11Connection &connection)
    : m_areas(connection), m_monitors(connection), m_space(connection), m_screens(describeAll()) {
    m_areas.setChangeHandler([this] { follow(); });
    m_monitors.setChangeHandler([this] { follow(); });
    m_space.setChangeHandler([this] { follow(); });
}

void X11Screens::setScales(MonitorScales &scales) {
    m_scales = &scales;
    m_scaleChanges = scales.subscribe([this] { follow(); });
    follow();
}

std::optional<Screen> X11Screens::main() const {
    return m_screens.empty() ? std::nullopt : std::optional(m_screens.front());
}

Subscription X11Screens::subscribe(std::function<void()> handler) {
    return m_changes.subscribe(std::move(handler));
}

void X11Screens::follow() {
    auto screens = describeAll();
    if (screens != m_screens) {
        m_screens = std::move(screens);
        m_changes.send();
    }
}

std::vector<Screen> X11Screens::describeAll() const {
    const auto &monitors = m_monitors.all();
    std::vector<ScreenFacts> facts;
    std::transform(monitors.begin(), monitors.end(), std::back_inserter(facts),
                   [](const X11Monitor &monitor) { return monitor.facts; });
    const auto identities = screenIdentities(facts);
    const auto names = screenNames(facts);
    const ScaleSettings scales{m_monitors.resources(), qgetenv("QT_SCALE_FACTOR"),
                               qgetenv("QT_SCREEN_SCALE_FACTORS")};
    std::vector<Screen> screens;
    for (std::size_t i = 0; i < monitors.size(); ++i) {
        const double scale = screenScale(
            scales, {facts[i].connector, static_cast<qsizetype>(i), toldScale(monitors[i])});
        screens.push_back(describe(monitors[i], identities[i], scale));
        screens.back().name = names[i];
        screens.back().connector = facts[i].connector;
    }
    return screens;
}

Screen X11Screens::describe(const X11Monitor &monitor, const QString &identity,
                            double scale) const {
    Screen screen;
    screen.displayID = connectorNumber(monitor.facts.connector);
    screen.persistentID = identity;
    screen.deviceFrame = monitor.geometry;
    screen.scale = scale;
    const QSizeF points = QSizeF(monitor.geometry.size()) / scale;
    screen.frame = QRectF(monitor.geometry.topLeft(), points.toSize());
    screen.visibleFrame = visibleFrame(screen.frame, availableFrame(screen),
                                       m_space.margins(monitor.geometry), scale);
    return screen;
}

std::optional<double> X11Screens::toldScale(const X11Monitor &monitor) const {
    return m_scales != nullptr ? m_scales->scaleOf(monitor.facts.connector, monitor.geometry)
                               : std::nullopt;
}

QRectF X11Screens::availableFrame(const Screen &screen) const {
    const auto area = workArea(screen.deviceFrame);
    if (!area) {
        return screen.frame;
    }
    const QRect shared = *area & screen.deviceFrame;
    const QRect &device = screen.deviceFrame;
    return screen.frame.marginsRemoved(
        QMarginsF(shared.left() - device.left(), shared.top() - device.top(),
                  device.right() - shared.right(), device.bottom() - shared.bottom()) /
        screen.scale);
}

/// Work areas count panels that are no windows too. The usual one is what all monitors have in
/// common, and so is of use for a lone one only.
std::optional<QRect> X11Screens::workArea(const QRect &monitor) const {
    const auto own = m_areas.on(monitor);
    return own || m_monitors.all().size() != 1 ? own : m_space.workArea();
}

} // namespace zeph
