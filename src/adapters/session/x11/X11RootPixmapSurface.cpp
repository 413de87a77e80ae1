// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11RootPixmapSurface.h"

#include "adapters/session/x11/X11Connection.h"

#include <QPainter>

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
    if (m_picture.enlargement() > 1) {
        putReduced(region);
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

void X11RootPixmapSurface::putReduced(const QRegion &region) {
    const int factor = m_picture.enlargement();
    const QRect place = reduced(m_pixels.geometry(), factor);
    if (!m_reduced || m_reduced->size() != place.size()) {
        m_reduced.emplace(connection(), place.size(), QImage::Format_RGB32);
    }
    m_waiting += region;
    if (!m_reduced->isFree()) {
        return;
    }
    const QRegion changed = std::exchange(m_waiting, {});
    const QRegion painted = m_reduced->paint([&](QImage &small) {
        QRegion pixels;
        m_pixels.buffer().paint([&](QImage &frame) {
            for (const QRect &rect : changed &frame.rect()) {
                const QRect pixel = reduced(rect, factor);
                const QRect whole(pixel.topLeft() * factor, pixel.size() * factor);
                QPainter(&small).drawImage(
                    pixel.topLeft(), frame.copy(whole).scaled(pixel.size(), Qt::IgnoreAspectRatio,
                                                              Qt::SmoothTransformation));
                pixels += pixel;
            }
            return QRegion();
        });
        return pixels;
    });
    m_picture.paint(changed.translated(m_pixels.geometry().topLeft()), [&](X11Canvas canvas) {
        canvas.origin = place.topLeft();
        m_reduced->put(canvas, painted);
    });
    if (!m_reduced->isFree()) {
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
            if (m_reduced) {
                m_reduced->pixelsWereRead();
                put(std::exchange(m_waiting, {}));
            }
            m_pixels.paintWaiting();
        }
    });
}

void X11RootPixmapSurface::handleEvent(std::uint8_t /*kind*/,
                                       const xcb_generic_event_t & /*event*/) {}

} // namespace zeph
