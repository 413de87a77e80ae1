// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/X11SharedSegment.h"
#include "ports/DesktopSurface.h"

#include <QPoint>

#include <cstdint>
#include <optional>

namespace zeph {

/// Where the pixels of a `X11FrameBuffer` go.
struct X11Canvas {
    xcb_drawable_t window = 0;
    xcb_gcontext_t context = 0;
    std::uint8_t depth = 24;
    QPoint origin = {}; ///< of the buffer in it

    /// Another client's, which may be gone by the time the pixels arrive. The server does not tell
    /// then that it has read them: `pixelsWereRead` has to be called.
    bool canVanish = false;
};

/// The pixels of one surface, black at first. Many at once go through memory shared with the
/// server where that is possible, which then tells when it has read them; few are sent, which costs
/// a copy and saves being woken for that.
class X11FrameBuffer {
public:
    X11FrameBuffer(X11Connection &connection, QSize size, QImage::Format format);

    /// Has the pixels painted and answers which were, cut to the buffer. To be called only while
    /// the buffer is free.
    QRegion paint(const FramePainter &painter);

    /// Shows these pixels; what lies outside the buffer is left out.
    void put(const X11Canvas &canvas, const QRegion &region);

    /// False while the server may still be reading what was put.
    bool isFree() const { return m_putsBeingRead == 0; }

    /// To be told each event; true for the one that makes the buffer free.
    bool becomesFreeBy(std::uint8_t kind, const xcb_generic_event_t &event);

    /// To be called when the server has worked off all that was put.
    void pixelsWereRead() { m_putsBeingRead = 0; }

    bool isShared() const { return m_segment.has_value(); }
    QSize size() const { return m_image.size(); }

private:
    void putShared(const X11Canvas &canvas, const QRect &rect, bool isLast);
    void sendPixels(const X11Canvas &canvas, const QRect &rect);
    void takeBackPixels();

    X11Connection &m_connection;
    std::optional<X11SharedSegment> m_segment;
    QImage m_image;
    int m_completion = -1; // the server's event for it; negative where nothing is shared
    int m_putsBeingRead = 0;
};

} // namespace zeph
