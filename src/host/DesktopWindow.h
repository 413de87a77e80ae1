// SPDX-License-Identifier: MIT
#pragma once

#include "base/WorkOwner.h"
#include "drawing/painting/SceneRenderer.h"
#include "host/SpaceWindow.h"
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

/// The wallpaper of one screen. Takes no input of any kind: clicks reach what lies beneath. While
/// it is ordered out nothing is painted; it comes back with what there is to show by then.
class DesktopWindow : public SpaceWindow {
public:
    /// A painted, hidden window for `screen`; everything else outlives it.
    DesktopWindow(WindowServer &server, RunLoop &runLoop, const PreferencesStore &preferences,
                  const RootWallpaperView &rootView, ScenePainter &painter, Screen screen,
                  int windowNumber);
    ~DesktopWindow() override;
    DesktopWindow(const DesktopWindow &) = delete;
    DesktopWindow &operator=(const DesktopWindow &) = delete;

    const Screen &targetScreen() const { return m_screen; }

    /// Moves the window to `screen` and redraws it.
    void setTargetScreen(const Screen &screen);

    /// Asks for one redraw at the end of this turn of the loop, however often it is called.
    void setNeedsDisplay();

    int windowNumber() const override { return m_windowNumber; }
    SpaceBehavior spaceBehavior() const override { return m_spaceBehavior; }
    void setSpaceBehavior(SpaceBehavior behavior) override { m_spaceBehavior = behavior; }
    bool isVisible() const override { return m_onScreen; }
    void orderFrontRegardless() override;
    void orderOut() override;

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
    void redraw();
    void paint();

    WindowServer &m_server;
    RunLoop &m_runLoop;
    const PreferencesStore &m_preferences;
    const RootWallpaperView &m_rootView;
    SceneRenderer m_renderer;
    Screen m_screen;
    std::unique_ptr<DesktopSurface> m_surface;
    DrawingMechanism m_mechanism = {}; // that the surface was made by
    bool m_wantsTransparency = false;
    const int m_windowNumber;
    SpaceBehavior m_spaceBehavior = SpaceBehavior::allSpaces;
    bool m_onScreen = false;
    bool m_isStale = false;      // what there is to show changed while it was hidden
    bool m_needsDisplay = false; // a redraw is pending
    WorkOwner m_redraws;
};

} // namespace zeph
