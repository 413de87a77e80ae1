// SPDX-License-Identifier: MIT
#include "host/DesktopWindow.h"

#include "ports/RunLoop.h"
#include "ports/WindowServer.h"
#include "settings/PreferencesStore.h"
#include "widgets/RootWallpaperView.h"

#include <utility>

namespace zeph {

DesktopWindow::DesktopWindow(WindowServer &server, RunLoop &runLoop,
                             const PreferencesStore &preferences, const RootWallpaperView &rootView,
                             ScenePainter &painter, Screen screen, int windowNumber)
    : m_server(server),
      m_runLoop(runLoop),
      m_preferences(preferences),
      m_rootView(rootView),
      m_renderer(painter),
      m_screen(std::move(screen)),
      m_windowNumber(windowNumber) {
    makeSurface();
    paint();
}

DesktopWindow::~DesktopWindow() {
    m_surface->orderOut();
    m_surface.reset();
}

bool DesktopWindow::wantsTransparency() const {
    return m_preferences.backgroundMode() == BackgroundMode::transparent;
}

void DesktopWindow::makeSurface() {
    m_wantsTransparency = wantsTransparency();
    m_surface = m_server.makeDesktopSurface(m_screen, m_wantsTransparency);
    m_mechanism = m_server.drawingWay().mechanism;
    m_renderer.invalidate();
}

void DesktopWindow::compositingChanged() {
    if (wantsTransparency()) {
        rebuildSurface();
    }
}

void DesktopWindow::drawingWayChanged() {
    if (m_server.drawingWay().mechanism != m_mechanism) {
        rebuildSurface();
    }
}

void DesktopWindow::rebuildSurface() {
    // It goes last, so that what lies beneath does not flash through.
    const std::unique_ptr<DesktopSurface> old = std::move(m_surface);
    makeSurface();
    paint();
    if (m_onScreen) {
        m_surface->orderFront();
    }
    old->orderOut();
}

void DesktopWindow::setTargetScreen(const Screen &screen) {
    const bool isResized = screen.deviceFrame.size() != m_screen.deviceFrame.size();
    m_screen = screen;
    m_surface->setScreen(screen);
    if (isResized) {
        // Its pixels are new, also where they are of the size that was painted last by the time
        // that it is shown.
        m_renderer.invalidate();
    }
    display(); // another size or scale repaints all
}

void DesktopWindow::setNeedsDisplay() {
    if (!m_onScreen) {
        m_isStale = true;
    } else if (!std::exchange(m_needsDisplay, true)) {
        m_runLoop.post(m_redraws.whileAlive([this] { display(); }));
    }
}

void DesktopWindow::display() {
    m_needsDisplay = false;
    if (m_onScreen) {
        redraw();
    } else {
        m_isStale = true;
    }
}

void DesktopWindow::redraw() {
    m_isStale = false;
    if (wantsTransparency() != m_wantsTransparency) {
        rebuildSurface();
    } else {
        paint();
    }
}

void DesktopWindow::paint() {
    m_surface->show([this](QImage &frame) {
        const bool isTransparent = m_surface->isTransparent();
        if (const auto backdrop = m_rootView.backdrop(isTransparent)) {
            m_renderer.paintAhead(*backdrop, frame);
        }
        return m_renderer.render(m_rootView.scene(m_screen.frame.size(), isTransparent), frame,
                                 m_screen.scale);
    });
}

void DesktopWindow::orderFrontRegardless() {
    if (m_isStale) {
        redraw();
    }
    m_onScreen = true;
    m_surface->orderFront();
}

void DesktopWindow::orderOut() {
    m_onScreen = false;
    m_surface->orderOut();
}

} // namespace zeph
