// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11FrameBuffer.h"

#include "adapters/session/x11/X11Connection.h"
#include "adapters/session/x11/X11EventListener.h"

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

namespace zeph {

namespace {

constexpr std::size_t kBytesPerPixel = 4;

// Room that the request itself takes in the longest request, with some to spare.
constexpr std::size_t kRequestHeader = 64;

// Such as a clock or a few lines of text.
constexpr std::size_t kMostBytesToSend = std::size_t{256} * 1024;

std::size_t bytesIn(const QRegion &region) {
    std::size_t pixels = 0;
    for (const QRect &rect : region) {
        pixels += static_cast<std::size_t>(rect.width()) * static_cast<std::size_t>(rect.height());
    }
    return pixels * kBytesPerPixel;
}

qsizetype bytesPerLine(QSize size) {
    return size.width() * static_cast<qsizetype>(kBytesPerPixel);
}

std::uint16_t length(int pixels) {
    return static_cast<std::uint16_t>(pixels);
}
std::int16_t position(int pixels) {
    return static_cast<std::int16_t>(pixels);
}

} // namespace

X11FrameBuffer::X11FrameBuffer(X11Connection &connection, QSize size, QImage::Format format)
    : m_connection(connection),
      m_segment(X11SharedSegment::create(connection, kBytesPerPixel *
                                                         static_cast<std::size_t>(size.width()) *
                                                         static_cast<std::size_t>(size.height()))) {
    if (m_segment) {
        m_completion = connection.extension(X11Extension::shm)->first_event + XCB_SHM_COMPLETION;
        m_image =
            QImage(m_segment->data(), size.width(), size.height(), bytesPerLine(size), format);
    } else {
        m_image = QImage(size, format);
    }
    // New shared pages read as black, and the first to write them pays for them.
    if (!m_segment || format != QImage::Format_RGB32) {
        m_image.fill(Qt::black);
    }
}

QRegion X11FrameBuffer::paint(const FramePainter &painter) {
    QRegion painted = painter(m_image) & m_image.rect();
    takeBackPixels();
    return painted;
}

void X11FrameBuffer::put(const X11Canvas &canvas, const QRegion &region) {
    const QRegion shown = region & m_image.rect();
    const bool isShared = m_segment && bytesIn(shown) > kMostBytesToSend;
    for (const QRect *rect = shown.begin(); rect != shown.end(); ++rect) {
        if (isShared) {
            putShared(canvas, *rect, rect + 1 == shown.end());
        } else {
            sendPixels(canvas, *rect);
        }
    }
    xcb_flush(m_connection.xcb());
}

bool X11FrameBuffer::becomesFreeBy(std::uint8_t kind, const xcb_generic_event_t &event) {
    return m_putsBeingRead > 0 && kind == m_completion &&
           eventAs<xcb_shm_completion_event_t>(event).shmseg == m_segment->number() &&
           --m_putsBeingRead == 0;
}

void X11FrameBuffer::putShared(const X11Canvas &canvas, const QRect &rect, bool isLast) {
    xcb_shm_put_image(
        m_connection.xcb(), canvas.window, canvas.context, length(m_image.width()),
        length(m_image.height()), length(rect.x()), length(rect.y()), length(rect.width()),
        length(rect.height()), position(canvas.origin.x() + rect.x()),
        position(canvas.origin.y() + rect.y()), canvas.depth, XCB_IMAGE_FORMAT_Z_PIXMAP,
        isLast && !canvas.canVanish ? 1 : 0, m_segment->number(), 0);
    m_putsBeingRead += isLast ? 1 : 0; // it reads them in order
}

void X11FrameBuffer::sendPixels(const X11Canvas &canvas, const QRect &rect) {
    // Requests are cut well below the maximum: a megabyte at once would hold up the server.
    constexpr std::size_t kChunk = std::size_t{256} * 1024;
    const std::size_t longest = xcb_get_maximum_request_length(m_connection.xcb()) * 4ULL;
    const std::size_t row = kBytesPerPixel * static_cast<std::size_t>(rect.width());
    const std::size_t room = std::min(kChunk, longest - kRequestHeader);
    const int rowsAtOnce = std::max(1, static_cast<int>(room / row));
    std::vector<unsigned char> packed(row * static_cast<std::size_t>(rowsAtOnce));
    for (int top = rect.top(); top <= rect.bottom(); top += rowsAtOnce) {
        const int rows = std::min(rowsAtOnce, rect.bottom() - top + 1);
        for (int y = 0; y < rows; ++y) {
            std::memcpy(packed.data() + row * static_cast<std::size_t>(y),
                        m_image.constScanLine(top + y) +
                            kBytesPerPixel * static_cast<std::size_t>(rect.x()),
                        row);
        }
        xcb_put_image(m_connection.xcb(), XCB_IMAGE_FORMAT_Z_PIXMAP, canvas.window, canvas.context,
                      length(rect.width()), length(rows), position(canvas.origin.x() + rect.x()),
                      position(canvas.origin.y() + top), 0, canvas.depth,
                      static_cast<std::uint32_t>(row * static_cast<std::size_t>(rows)),
                      packed.data());
    }
}

void X11FrameBuffer::takeBackPixels() {
    if (!m_segment || m_image.constBits() == m_segment->data()) {
        return;
    }
    // Someone kept a copy of the image while it was painted into, so it moved to the heap.
    const QImage moved =
        std::exchange(m_image, QImage(m_segment->data(), m_image.width(), m_image.height(),
                                      bytesPerLine(m_image.size()), m_image.format()));
    for (int y = 0; y < moved.height(); ++y) {
        std::memcpy(m_image.scanLine(y), moved.constScanLine(y),
                    kBytesPerPixel * static_cast<std::size_t>(moved.width()));
    }
}

} // namespace zeph
