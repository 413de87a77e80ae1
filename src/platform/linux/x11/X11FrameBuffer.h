// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/x11/X11SharedSegment.h"

#include <QImage>
#include <QRegion>

#include <cstdint>
#include <optional>

namespace zeph {

/// Where the pixels of a `X11FrameBuffer` go.
struct X11Canvas {
    xcb_window_t window = 0;
    xcb_gcontext_t context = 0;
    std::uint8_t depth = 24;
};

/// The pixels of one surface, in memory shared with the server where that is possible, else sent
/// through the connection. Black at first.
class X11FrameBuffer {
public:
    X11FrameBuffer(X11Connection &connection, QSize size, QImage::Format format);

    /// The image to paint into. Waits, one round trip, when the server may still be reading what
    /// was put last.
    QImage &image();

    /// Shows these pixels; what lies outside the buffer is left out.
    void put(const X11Canvas &canvas, const QRegion &region);

    bool isShared() const { return m_segment.has_value(); }
    QSize size() const { return m_image.size(); }

private:
    void putShared(const X11Canvas &canvas, const QRect &rect);
    void sendPixels(const X11Canvas &canvas, const QRect &rect);
    void takeBackPixels();

    X11Connection &m_connection;
    std::optional<X11SharedSegment> m_segment;
    QImage m_image;
    bool m_serverMayRead = false;
};

} // namespace zeph
