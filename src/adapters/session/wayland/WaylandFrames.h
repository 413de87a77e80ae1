// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/wayland/WaylandHandle.h"
#include "adapters/session/wayland/WaylandPixels.h"

#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace zeph {

/// Tells a time that never goes back.
using SteadyNow = std::function<std::chrono::steady_clock::time_point()>;

/// The pixels of one surface, black at first. There is one buffer of them where the compositor
/// tells soon that it has read it. One that reads for as long as the pixels are shown gets a new
/// buffer for each frame, and the one before ends as soon as it was read; while frames follow each
/// other fast, two take turns, and one is left soon after. Where both are held for long by a
/// compositor that answers, a new one stands in for the older; one that stands still gets none, as
/// its queue would hold them all.
class WaylandFrames {
public:
    /// `becameFree` is called when pixels can be painted again after `makeFree` said no.
    WaylandFrames(wl_display &display, wl_shm &memory, QSize size, QImage::Format format,
                  SteadyNow now, std::function<void()> becameFree);

    /// Begins anew with pixels of that size. What is held is kept until the compositor has read it.
    void resize(QSize size);
    QSize size() const { return m_size; }

    /// False while the compositor reads all that may be painted into.
    bool makeFree();

    /// Has the pixels painted and answers which were: none where the system has no memory for
    /// them. What was painted then is shown with the next ones. To be called only when `makeFree`
    /// says so.
    QRegion paint(const FramePainter &painter);

    /// What is to be shown; null where there is no memory.
    const WaylandPixels *current() const { return m_front.get(); }

    /// To be called when `current` was handed over, and when something else is shown instead.
    void noteCommitted();
    void noteHidden() { m_isShown = false; }

private:
    std::unique_ptr<WaylandPixels> makeBlack();
    bool canPaint() const;
    void retire(std::unique_ptr<WaylandPixels> pixels);
    void askForAnswer();
    void noteAnswered();
    void giveUpSpare();
    void dropSpare();
    QRegion paintOnce(const FramePainter &painter);
    QRegion paintInFront(const FramePainter &painter);
    QRegion paintNext(const FramePainter &painter);
    void noteReleased();

    wl_display &m_display;
    wl_shm &m_memory;
    QSize m_size;
    QImage::Format m_format;
    SteadyNow m_now;
    std::function<void()> m_becameFree;
    std::unique_ptr<WaylandPixels> m_front;
    std::unique_ptr<WaylandPixels> m_spare;                // shown before `m_front`, or null
    QRegion m_missedBySpare;                               // painted in `m_front` since
    std::optional<WaylandPixels::Draft> m_unshown;         // painted after `m_front`
    std::vector<std::unique_ptr<WaylandPixels>> m_retired; // done with, still being read
    std::chrono::steady_clock::time_point m_lastCommit;
    bool m_isBurst = false;              // the last two commits followed each other fast
    bool m_isShown = false;              // `m_front` is, as it was committed
    bool m_keepsShown = false;           // the compositor reads pixels for as long as it shows them
    bool m_isAwaited = false;            // someone wants to paint
    QTimer m_patience;                   // runs while someone waits
    WaylandHandle<wl_callback> m_answer; // awaited after that
    QTimer m_rest;                       // runs after a burst
};

} // namespace zeph
