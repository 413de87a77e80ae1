// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/wayland/MemoryFile.h"
#include "adapters/session/wayland/WaylandHandle.h"
#include "ports/DesktopSurface.h"

#include <functional>
#include <memory>

namespace zeph {

/// Pixels in memory that the compositor reads without copying, zero at first. Those in RGB32 have
/// no alpha, those in premultiplied ARGB32 have.
class WaylandPixels {
public:
    /// Pixels painted after others that can't be shown yet.
    struct Draft {
        std::unique_ptr<MemoryView> memory; ///< null where nothing was painted
        QImage image;
        QRegion painted;

        /// Brings what was painted into an image of the same size and format.
        void copyTo(QImage &other) const;
    };

    /// The draft, and the pixels made of it: null where nothing was painted, or the system has no
    /// memory for it.
    struct Next {
        Draft draft;
        std::unique_ptr<WaylandPixels> pixels;
    };

    /// Null when the size is empty or the system has no memory. `released` is called whenever the
    /// compositor has read the pixels, and may end them.
    static std::unique_ptr<WaylandPixels> create(wl_shm &memory, QSize size, QImage::Format format,
                                                 std::function<void()> released);
    ~WaylandPixels() = default;
    WaylandPixels(const WaylandPixels &) = delete;
    WaylandPixels &operator=(const WaylandPixels &) = delete;

    /// Has the pixels painted and answers which were, cut to the size. Not while they are held.
    QRegion paint(const FramePainter &painter);

    /// Has a copy of the pixels painted, which costs no more than that where nothing is. `painter`
    /// is not called where there is no memory even for that.
    Next paintNext(const FramePainter &painter) const;

    /// Takes the pixels of that region from others of the same size and format.
    void copy(const WaylandPixels &source, const QRegion &region);

    wl_buffer *buffer() const { return m_buffer.get(); }
    QSize size() const { return m_image.size(); }

    /// True from `noteCommitted` until the compositor has read the pixels.
    bool isHeld() const { return m_isHeld; }
    void noteCommitted() { m_isHeld = true; }

private:
    WaylandPixels(wl_shm &shm, std::unique_ptr<MemoryFile> memory, QSize size,
                  QImage::Format format, std::function<void()> released);

    wl_shm &m_shm;
    std::unique_ptr<MemoryFile> m_memory;
    QImage m_image;
    WaylandHandle<wl_buffer> m_buffer;
    std::function<void()> m_released;
    bool m_isHeld = false;
};

} // namespace zeph
