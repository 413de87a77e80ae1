// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/X11DesktopPicture.h"
#include "adapters/session/x11/X11EventListener.h"
#include "adapters/session/x11/X11SurfacePixels.h"
#include "ports/DesktopSurface.h"

#include <memory>
#include <optional>

namespace zeph {

/// A surface that has no window: it lies in the picture of the program that draws the desktop's
/// icons, beneath these.
class X11RootPixmapSurface : public DesktopSurface, private X11EventListener {
public:
    /// `picture` outlives the surface.
    X11RootPixmapSurface(X11Connection &connection, X11DesktopPicture &picture,
                         const Screen &screen);

    void setScreen(const Screen &screen) override;
    bool isTransparent() const override { return false; }
    QRegion show(FramePainter paint) override;
    void orderFront() override;
    void orderOut() override;

    bool isShared() const { return m_pixels.buffer().isShared(); }

private:
    void handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) override;
    void claim();
    void put(const QRegion &region);
    void putReduced(const QRegion &region);
    void waitUntilRead();

    X11DesktopPicture &m_picture;
    X11SurfacePixels m_pixels;
    // What is put of them where the picture has fewer pixels than the screen.
    std::optional<X11FrameBuffer> m_reduced;
    QRegion m_waiting; // until those are free
    int m_fences = 0;  // requests whose replies tell that the pixels were read
    std::unique_ptr<X11DesktopPicture::Claim> m_claim; // there while shown
};

} // namespace zeph
