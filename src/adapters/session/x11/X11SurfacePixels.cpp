// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11SurfacePixels.h"

#include <utility>

namespace zeph {

namespace {

QRect withArea(const QRect &frame) {
    return {frame.topLeft(), frame.size().expandedTo(QSize(1, 1))};
}

} // namespace

X11SurfacePixels::X11SurfacePixels(X11Connection &connection, const QRect &frame,
                                   QImage::Format format, AtFirst atFirst, Put put)
    : m_connection(connection),
      m_geometry(withArea(frame)),
      m_format(format),
      m_atFirst(atFirst),
      m_put(std::move(put)) {
    makeBuffer();
}

void X11SurfacePixels::makeBuffer() {
    m_buffer.reset(); // first, since two of a large screen would be a lot of memory
    m_buffer.emplace(m_connection, m_geometry.size(), m_format);
    if (m_atFirst == AtFirst::black) {
        m_buffer->paint([](QImage &frame) {
            frame.fill(Qt::black);
            return QRegion();
        });
    }
}

X11SurfacePixels::Change X11SurfacePixels::setFrame(const QRect &frame) {
    const QRect last = std::exchange(m_geometry, withArea(frame));
    if (m_geometry == last) {
        return Change::none;
    }
    if (m_geometry.size() == last.size()) {
        return Change::place;
    }
    makeBuffer();
    m_waiting = nullptr;
    return Change::size;
}

QRegion X11SurfacePixels::show(FramePainter paint) {
    if (!m_buffer->isFree()) {
        m_waiting = std::move(paint);
        return {};
    }
    m_waiting = nullptr;
    QRegion painted = m_buffer->paint(paint);
    m_put(painted);
    return painted;
}

void X11SurfacePixels::paintWaiting() {
    if (m_waiting) {
        show(std::exchange(m_waiting, nullptr));
    }
}

} // namespace zeph
