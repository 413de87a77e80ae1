// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/InsistenceLimit.h"
#include "adapters/session/x11/X11EventListener.h"
#include "adapters/session/x11/X11SurfacePixels.h"
#include "adapters/session/x11/X11Visual.h"
#include "ports/DesktopSurface.h"

#include <QTimer>

namespace zeph {

class X11DesktopStacking;
enum class DesktopPlace;

/// A desktop-type window of our own.
class X11DesktopSurface : public DesktopSurface, private X11EventListener {
public:
    /// Transparent when `visual` has alpha. `stacking` outlives the surface.
    X11DesktopSurface(X11Connection &connection, X11DesktopStacking &stacking, DesktopPlace place,
                      const X11Visual &visual, const Screen &screen);
    ~X11DesktopSurface() override;

    void setScreen(const Screen &screen) override;
    bool isTransparent() const override { return hasAlpha(); }
    QRegion show(FramePainter paint) override;
    void orderFront() override;
    void orderOut() override;

    xcb_window_t window() const { return m_canvas.window; }
    bool isShared() const { return m_pixels.buffer().isShared(); }

private:
    void handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) override;
    bool hasAlpha() const { return m_visual.depth == 32; }
    void createWindow();
    void map();
    void put(const QRegion &region);
    void noteExposure(const xcb_expose_event_t &expose);
    void noteParent(xcb_window_t parent);
    void noteState();
    void notePlace();
    void place();
    void refuseInputInFrames(xcb_window_t window, int levels);
    QImage::Format format() const;

    X11DesktopStacking &m_stacking;
    DesktopPlace m_place;
    X11Visual m_visual;
    xcb_colormap_t m_colormap;
    X11Canvas m_canvas;
    X11SurfacePixels m_pixels;
    QRegion m_exposed;
    bool m_isVisible = false;
    QTimer m_mapWatch; // runs from the first request to map until the window is on the screen
    int m_mapTries = 0;
    InsistenceLimit m_placements;
};

} // namespace zeph
