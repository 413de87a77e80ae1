// SPDX-License-Identifier: MIT
#include "adapters/session/wayland/WaylandPixels.h"

#include <cstring>
#include <limits>
#include <utility>

namespace zeph {

namespace {

constexpr qsizetype kPixelBytes = 4;

std::size_t bytesOf(QSize size) {
    return static_cast<std::size_t>(kPixelBytes * size.width() * size.height());
}

QImage imageOf(unsigned char *memory, QSize size, QImage::Format format) {
    return {memory, size.width(), size.height(), kPixelBytes * size.width(), format};
}

void copyRows(const QImage &source, QImage &target, const QRect &rect) {
    const auto offset = static_cast<std::size_t>(kPixelBytes * rect.x());
    const auto bytes = static_cast<std::size_t>(kPixelBytes * rect.width());
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
        std::memcpy(target.scanLine(y) + offset, source.constScanLine(y) + offset, bytes);
    }
}

/// The protocol counts bytes in 32 bits.
bool isShareable(QSize size) {
    constexpr qint64 most = std::numeric_limits<std::int32_t>::max();
    return !size.isEmpty() && qint64{size.width()} * size.height() <= most / kPixelBytes;
}

} // namespace

std::unique_ptr<WaylandPixels> WaylandPixels::create(wl_shm &memory, QSize size,
                                                     QImage::Format format,
                                                     std::function<void()> released) {
    auto file = isShareable(size) ? MemoryFile::create(bytesOf(size)) : nullptr;
    return file ? std::unique_ptr<WaylandPixels>(
                      new WaylandPixels(memory, std::move(file), size, format, std::move(released)))
                : nullptr;
}

WaylandPixels::WaylandPixels(wl_shm &shm, std::unique_ptr<MemoryFile> memory, QSize size,
                             QImage::Format format, std::function<void()> released)
    : m_shm(shm),
      m_memory(std::move(memory)),
      m_image(imageOf(m_memory->data(), size, format)),
      m_released(std::move(released)) {
    const WaylandHandle<wl_shm_pool> pool(
        wl_shm_create_pool(&shm, m_memory->descriptor(), static_cast<std::int32_t>(bytesOf(size))));
    m_buffer.reset(wl_shm_pool_create_buffer(
        pool.get(), 0, size.width(), size.height(),
        static_cast<std::int32_t>(kPixelBytes * size.width()),
        format == QImage::Format_RGB32 ? WL_SHM_FORMAT_XRGB8888 : WL_SHM_FORMAT_ARGB8888));
    static constexpr wl_buffer_listener listener{[](void *self, wl_buffer * /*buffer*/) {
        auto &pixels = *static_cast<WaylandPixels *>(self);
        pixels.m_isHeld = false;
        const auto tell = pixels.m_released; // may end the pixels
        tell();
    }};
    wl_buffer_add_listener(m_buffer.get(), &listener, this);
}

QRegion WaylandPixels::paint(const FramePainter &painter) {
    QRegion painted = painter(m_image) & m_image.rect();
    if (m_image.constBits() != m_memory->data()) {
        // Someone kept a copy of the image while it was painted into, so it moved to the heap.
        const QImage moved =
            std::exchange(m_image, imageOf(m_memory->data(), m_image.size(), m_image.format()));
        copyRows(moved, m_image, m_image.rect());
    }
    return painted;
}

WaylandPixels::Next WaylandPixels::paintNext(const FramePainter &painter) const {
    auto memory = m_memory->draft();
    if (!memory) {
        return {};
    }
    QImage image = imageOf(memory->data(), size(), m_image.format());
    QRegion painted = painter(image) & image.rect();
    if (painted.isEmpty()) {
        return {};
    }
    Next next{{std::move(memory), std::move(image), std::move(painted)}, nullptr};
    if (auto file = MemoryFile::create(bytesOf(size()), next.draft.image.constBits())) {
        next.pixels.reset(
            new WaylandPixels(m_shm, std::move(file), size(), m_image.format(), m_released));
    }
    return next;
}

void WaylandPixels::Draft::copyTo(QImage &other) const {
    for (const QRect &rect : painted) {
        copyRows(image, other, rect);
    }
}

void WaylandPixels::copy(const WaylandPixels &source, const QRegion &region) {
    for (const QRect &rect : region &m_image.rect()) {
        copyRows(source.m_image, m_image, rect);
    }
}

} // namespace zeph
