// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/X11DesktopPicture.h"
#include "adapters/session/x11/X11EventListener.h"
#include "adapters/session/x11/X11FrameBuffer.h"
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

    bool isShared() const { return m_frame->isShared(); }

private:
    void handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) override;
    void makeFrame();
    void claim();
    void put(const QRegion &region);
    void waitUntilRead();

    X11DesktopPicture &m_picture;
    QRect m_geometry;                      // in device pixels of the root
    std::optional<X11FrameBuffer> m_frame; // always there but while its size changes
    FramePainter m_waiting;                // until the buffer is free
    int m_fences = 0;                      // requests whose replies tell that the buffer was read
    std::unique_ptr<X11DesktopPicture::Claim> m_claim; // there while shown
};

} // namespace zeph
