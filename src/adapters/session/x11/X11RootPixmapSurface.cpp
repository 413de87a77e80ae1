// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11RootPixmapSurface.h"

#include "adapters/session/x11/X11Connection.h"

#include <utility>

namespace zeph {

// New memory is transparent, and so would be our black in a picture with alpha.
X11RootPixmapSurface::X11RootPixmapSurface(X11Connection &connection, X11DesktopPicture &picture,
                                           const Screen &screen)
    : X11EventListener(connection),
      m_picture(picture),
      m_pixels(connection, screen.deviceFrame, QImage::Format_RGB32,
               X11SurfacePixels::AtFirst::black, [this](const QRegion &region) { put(region); }) {}

void X11RootPixmapSurface::setScreen(const Screen &screen) {
    const auto change = m_pixels.setFrame(screen.deviceFrame);
    if (change != X11SurfacePixels::Change::none && m_claim) {
        claim();
    }
}

QRegion X11RootPixmapSurface::show(FramePainter paint) {
    return m_pixels.show(std::move(paint));
}

void X11RootPixmapSurface::orderFront() {
    if (!m_claim) {
        claim();
    }
}

void X11RootPixmapSurface::claim() {
    // The next claim comes before the last one goes, so that nothing of the picture beneath flashes
    // through where both lie.
    const auto putAll = [this] { put(QRect(QPoint(), m_pixels.geometry().size())); };
    m_claim = m_picture.claim(m_pixels.geometry(), putAll);
    putAll();
}

void X11RootPixmapSurface::orderOut() {
    m_claim.reset();
}

void X11RootPixmapSurface::put(const QRegion &region) {
    if (!m_claim || !m_picture.isThere()) {
        return;
    }
    const QPoint origin = m_pixels.geometry().topLeft();
    m_picture.paint(region.translated(origin), [&](X11Canvas canvas) {
        canvas.origin = origin;
        m_pixels.buffer().put(canvas, region);
    });
    if (!m_pixels.buffer().isFree()) {
        waitUntilRead();
    }
}

/// Requests are worked off in order, so the answer to one tells that those before it were. It comes
/// even where the picture had vanished.
void X11RootPixmapSurface::waitUntilRead() {
    ++m_fences;
    const unsigned fence = xcb_get_input_focus(connection().xcb()).sequence;
    connection().whenReplied(*this, {fence}, [this](const X11Connection::Replies &) {
        if (--m_fences == 0) {
            m_pixels.buffer().pixelsWereRead();
            m_pixels.paintWaiting();
        }
    });
}

void X11RootPixmapSurface::handleEvent(std::uint8_t /*kind*/,
                                       const xcb_generic_event_t & /*event*/) {}

} // namespace zeph
