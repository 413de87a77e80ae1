// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/X11FrameBuffer.h"
#include "ports/DesktopSurface.h"

#include <QRect>

#include <functional>
#include <optional>

namespace zeph {

/// The pixels of a surface over a place of the root, and the painter that waits while the server
/// reads them.
class X11SurfacePixels {
public:
    /// What new pixels are, where they have alpha: as memory comes, which is nothing at all, or
    /// black.
    enum class AtFirst { nothing, black };
    enum class Change { none, place, size };

    /// Puts pixels of that region onto the screen, where the surface is on it.
    using Put = std::function<void(const QRegion &)>;

    /// `frame` is that of the screen in device pixels of the root; one without an area stands for a
    /// single pixel, as the server refuses it.
    X11SurfacePixels(X11Connection &connection, const QRect &frame, QImage::Format format,
                     AtFirst atFirst, Put put);

    const QRect &geometry() const { return m_geometry; }
    X11FrameBuffer &buffer() { return *m_buffer; }
    const X11FrameBuffer &buffer() const { return *m_buffer; }

    /// Follows the screen. Where its size changed, all pixels are new, and nobody waits any more.
    Change setFrame(const QRect &frame);

    /// Has the pixels painted and put, at once or when they are free: as `DesktopSurface::show`.
    QRegion show(FramePainter paint);

    /// To be called when the pixels became free.
    void paintWaiting();

private:
    void makeBuffer();

    X11Connection &m_connection;
    QRect m_geometry;
    QImage::Format m_format;
    AtFirst m_atFirst;
    Put m_put;
    std::optional<X11FrameBuffer> m_buffer; // always there but while its size changes
    FramePainter m_waiting;
};

} // namespace zeph
