// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11RootPixmapSurface.h"

#include "adapters/session/x11/X11Connection.h"

#include <utility>

namespace zeph {

namespace {

QRect withArea(const QRect &frame) {
    return {frame.topLeft(), frame.size().expandedTo(QSize(1, 1))};
}

} // namespace

X11RootPixmapSurface::X11RootPixmapSurface(X11Connection &connection, X11DesktopPicture &picture,
                                           const Screen &screen)
    : X11EventListener(connection), m_picture(picture), m_geometry(withArea(screen.deviceFrame)) {
    makeFrame();
}

void X11RootPixmapSurface::makeFrame() {
    m_frame.emplace(connection(), m_geometry.size(), QImage::Format_RGB32);
    // New memory is transparent, and so would be our black in a picture with alpha.
    m_frame->paint([](QImage &frame) {
        frame.fill(Qt::black);
        return QRegion();
    });
}

void X11RootPixmapSurface::setScreen(const Screen &screen) {
    const QRect next = withArea(screen.deviceFrame);
    const QRect last = std::exchange(m_geometry, next);
    if (next == last) {
        return;
    }
    if (next.size() != last.size()) {
        m_frame.reset(); // first, since two of a large screen would be a lot of memory
        makeFrame();
        m_waiting = nullptr;
    }
    if (m_claim) {
        claim();
    }
}

QRegion X11RootPixmapSurface::show(FramePainter paint) {
    if (!m_frame->isFree()) {
        m_waiting = std::move(paint);
        return {};
    }
    m_waiting = nullptr;
    QRegion painted = m_frame->paint(paint);
    put(painted);
    return painted;
}

void X11RootPixmapSurface::orderFront() {
    if (!m_claim) {
        claim();
    }
}

void X11RootPixmapSurface::claim() {
    // The next claim comes before the last one goes, so that nothing of the picture beneath flashes
    // through where both lie.
    const auto putAll = [this] { put(QRect(QPoint(), m_frame->size())); };
    m_claim = m_picture.claim(m_geometry, putAll);
    putAll();
}

void X11RootPixmapSurface::orderOut() {
    m_claim.reset();
}

void X11RootPixmapSurface::put(const QRegion &region) {
    if (!m_claim || !m_picture.isThere()) {
        return;
    }
    m_picture.paint(region.translated(m_geometry.topLeft()), [&](X11Canvas canvas) {
        canvas.origin = m_geometry.topLeft();
        m_frame->put(canvas, region);
    });
    if (!m_frame->isFree()) {
        waitUntilRead();
    }
}

/// Requests are worked off in order, so the answer to one tells that those before it were. It comes
/// even where the picture had vanished.
void X11RootPixmapSurface::waitUntilRead() {
    ++m_fences;
    const unsigned fence = xcb_get_input_focus(connection().xcb()).sequence;
    connection().whenReplied(*this, {fence}, [this](const X11Connection::Replies &) {
        if (--m_fences > 0) {
            return;
        }
        m_frame->pixelsWereRead();
        if (m_waiting) {
            show(std::exchange(m_waiting, nullptr));
        }
    });
}

void X11RootPixmapSurface::handleEvent(std::uint8_t /*kind*/,
                                       const xcb_generic_event_t & /*event*/) {}

} // namespace zeph
