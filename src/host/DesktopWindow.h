// SPDX-License-Identifier: MIT
#pragma once

#include "base/WorkOwner.h"
#include "drawing/painting/SceneRenderer.h"
#include "ports/DrawingWay.h"
#include "ports/Screens.h"

#include <memory>

namespace zeph {

class DesktopSurface;
class PreferencesStore;
class RootWallpaperView;
class RunLoop;
class ScenePainter;
class WindowServer;

/// The wallpaper of one screen. Takes no input of any kind: clicks reach what lies beneath.
class DesktopWindow {
public:
    /// A painted, hidden window for `screen`; everything else outlives it.
    DesktopWindow(WindowServer &server, RunLoop &runLoop, const PreferencesStore &preferences,
                  const RootWallpaperView &rootView, ScenePainter &painter, Screen screen);
    ~DesktopWindow();
    DesktopWindow(const DesktopWindow &) = delete;
    DesktopWindow &operator=(const DesktopWindow &) = delete;

    const Screen &targetScreen() const { return m_screen; }

    /// Moves the window to `screen` and redraws it.
    void setTargetScreen(const Screen &screen);

    /// Asks for one redraw at the end of this turn of the loop, however often it is called.
    void setNeedsDisplay();

    /// Puts the painted window on its screen; no application loses focus.
    void orderFrontRegardless();

    /// To be called when a compositor came or went. Makes the surface anew where it matters: an
    /// opaque one looks the same with and without.
    void compositingChanged();

    /// To be called when wallpapers get onto this desktop in another way. Makes the surface anew
    /// where that takes another mechanism.
    void drawingWayChanged();

private:
    bool wantsTransparency() const;
    void makeSurface();
    void rebuildSurface();
    void display();

    WindowServer &m_server;
    RunLoop &m_runLoop;
    const PreferencesStore &m_preferences;
    const RootWallpaperView &m_rootView;
    SceneRenderer m_renderer;
    Screen m_screen;
    std::unique_ptr<DesktopSurface> m_surface;
    DrawingMechanism m_mechanism = {}; // that the surface was made by
    bool m_wantsTransparency = false;
    bool m_onScreen = false;
    bool m_needsDisplay = false; // a redraw is pending
    WorkOwner m_redraws;
};

} // namespace zeph
