// SPDX-License-Identifier: MIT
#include "adapters/icons/ScreensBesideIcons.h"

#include "adapters/icons/DisplayGrid.h"
#include "adapters/icons/IconColumns.h"
#include "ports/WindowServer.h"

#include <algorithm>
#include <utility>

namespace zeph {

namespace {

/// The screen as it lies on a desktop that is measured in points of `scale`. The origin of a
/// screen's frame is in device pixels, the rest of it in points.
IconScreen onDesktop(const Screen &screen, double scale) {
    const QPointF origin = QPointF(screen.deviceFrame.topLeft()) / scale;
    return {QRectF(origin, screen.frame.size()),
            screen.visibleFrame.translated(origin - screen.frame.topLeft())};
}

/// The icons as far as they concern a screen.
DesktopIcons iconsNear(const Screen &screen, const IconScreen &placed, const DesktopIcons &icons) {
    if (icons.displays.empty()) {
        return icons;
    }
    const auto own = std::find_if(icons.displays.begin(), icons.displays.end(),
                                  [&screen](const DisplayIcons &one) {
                                      return one.display.topLeft() == screen.deviceFrame.topLeft();
                                  });
    return own == icons.displays.end() ? DesktopIcons() : placedOn(placed, *own);
}

} // namespace

bool showsIcons(const DrawingWay &way, bool areAboveDesktopWindows) {
    if (way.isTransparent) {
        return true;
    }
    switch (way.mechanism) {
    case DrawingMechanism::rootPixmap:
    case DrawingMechanism::underDesktopProgram:
    case DrawingMechanism::plasmaPictures:
        return true;
    case DrawingMechanism::desktopWindow:
        return areAboveDesktopWindows;
    case DrawingMechanism::loweredOverride:
    case DrawingMechanism::layerSurface:
        break;
    }
    return false;
}

std::vector<Screen> besideIcons(std::vector<Screen> screens, const DesktopIcons &icons) {
    const std::vector<Screen> all = screens;
    for (Screen &screen : screens) {
        QRectF desktopWorkArea;
        for (const Screen &one : all) {
            desktopWorkArea |= onDesktop(one, screen.scale).workArea;
        }
        const IconScreen placed = onDesktop(screen, screen.scale);
        const QMarginsF taken =
            iconMargins(iconsNear(screen, placed, icons), placed, desktopWorkArea);
        const double left =
            std::max(screen.visibleFrame.left(), screen.frame.left() + taken.left());
        const double right =
            std::min(screen.visibleFrame.right(), screen.frame.right() - taken.right());
        if (left < right) {
            screen.visibleFrame.setLeft(left);
            screen.visibleFrame.setRight(right);
        }
        const double top = std::max(screen.visibleFrame.top(), screen.frame.top() + taken.top());
        if (top < screen.visibleFrame.bottom()) {
            screen.visibleFrame.setTop(top);
        }
    }
    return screens;
}

ScreensBesideIcons::ScreensBesideIcons(Screens &screens, WindowServer &server,
                                       DesktopIconsWatch &icons)
    : m_screens(screens),
      m_server(server),
      m_icons(icons),
      m_screenChanges(screens.subscribe([this] { follow(); })),
      m_wayChanges(server.subscribeToDrawingWay([this] { followWay(); })),
      m_iconChanges(icons.subscribe([this] { follow(); })) {
    follow();
    followWay();
}

std::optional<Screen> ScreensBesideIcons::main() const {
    return m_main;
}

Subscription ScreensBesideIcons::subscribe(std::function<void()> handler) {
    return m_changes.subscribe(std::move(handler));
}

void ScreensBesideIcons::followWay() {
    m_icons.setOn(showsIcons(m_server.drawingWay(), m_icons.areAboveDesktopWindows()));
}

void ScreensBesideIcons::follow() {
    const auto all = m_screens.all();
    auto beside = besideIcons(all, m_icons.icons());
    const auto main = m_screens.main();
    // The main screen is one of them.
    const auto found = std::find(all.begin(), all.end(), main.value_or(Screen{}));
    auto mainBeside = main && found != all.end()
                          ? std::optional(beside[static_cast<std::size_t>(found - all.begin())])
                          : main;
    if (beside != m_beside || mainBeside != m_main) {
        m_beside = std::move(beside);
        m_main = std::move(mainBeside);
        m_changes.send();
    }
}

} // namespace zeph
