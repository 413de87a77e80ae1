// SPDX-License-Identifier: MIT
#include "adapters/session/wayland/WaylandFrames.h"

#include <utility>

namespace zeph {

namespace {

// A compositor that copies pixels does so by the next refresh of the display.
constexpr std::chrono::milliseconds kPatience{100};

// Faster than this a second buffer costs less than a new one for each frame.
constexpr std::chrono::milliseconds kBurst{500};

// More pile up only where the compositor never tells that it has read them.
constexpr std::size_t kMostRetired = 2;

} // namespace

WaylandFrames::WaylandFrames(wl_display &display, wl_shm &memory, QSize size, QImage::Format format,
                             SteadyNow now, std::function<void()> becameFree)
    : m_display(display),
      m_memory(memory),
      m_size(size),
      m_format(format),
      m_now(std::move(now)),
      m_becameFree(std::move(becameFree)),
      m_front(makeBlack()) {
    m_patience.setSingleShot(true);
    m_patience.setInterval(kPatience);
    QObject::connect(&m_patience, &QTimer::timeout, &m_patience, [this] { askForAnswer(); });
    m_rest.setSingleShot(true);
    m_rest.setInterval(kBurst);
    m_rest.setTimerType(Qt::PreciseTimer); // never early
    QObject::connect(&m_rest, &QTimer::timeout, &m_rest, [this] {
        if (m_now() - m_lastCommit >= kBurst) {
            dropSpare();
        }
    });
}

std::unique_ptr<WaylandPixels> WaylandFrames::makeBlack() {
    auto pixels = WaylandPixels::create(m_memory, m_size, m_format, [this] { noteReleased(); });
    if (pixels && m_format != QImage::Format_RGB32) { // where zero is nothing at all
        pixels->paint([](QImage &image) {
            image.fill(Qt::black);
            return QRegion();
        });
    }
    return pixels;
}

/// Ends the pixels, those that are held once the compositor has read them.
void WaylandFrames::retire(std::unique_ptr<WaylandPixels> pixels) {
    if (!pixels || !pixels->isHeld()) {
        return;
    }
    m_retired.push_back(std::move(pixels));
    if (m_retired.size() > kMostRetired) {
        m_retired.erase(m_retired.begin());
    }
}

/// By its answer the compositor has seen all that was handed over, and still keeps it.
void WaylandFrames::askForAnswer() {
    static constexpr wl_callback_listener listener{
        [](void *self, wl_callback * /*callback*/, std::uint32_t /*serial*/) {
            static_cast<WaylandFrames *>(self)->noteAnswered();
        }};
    m_answer.reset(wl_display_sync(&m_display));
    wl_callback_add_listener(m_answer.get(), &listener, this);
}

void WaylandFrames::noteAnswered() {
    m_answer.reset();
    m_keepsShown = true;
    if (std::exchange(m_isAwaited, false)) {
        giveUpSpare();
        m_becameFree();
    }
}

/// So that the next frame gets a new buffer: the wallpaper stands still where neither is ever read.
void WaylandFrames::giveUpSpare() {
    retire(std::move(m_spare));
    m_missedBySpare = {};
}

/// Ends what was shown before, where the compositor has read it and what came after is shown.
void WaylandFrames::dropSpare() {
    if (m_spare && !m_spare->isHeld() && m_isShown) {
        m_spare.reset();
        m_missedBySpare = {};
    }
}

void WaylandFrames::resize(QSize size) {
    retire(std::move(m_front));
    retire(std::move(m_spare));
    m_patience.stop();
    m_answer.reset();
    m_rest.stop();
    m_isAwaited = false;
    m_isShown = false;
    m_isBurst = false;
    m_missedBySpare = {};
    m_unshown.reset();
    m_size = size;
    m_front = makeBlack();
}

bool WaylandFrames::canPaint() const {
    return !m_front || !m_front->isHeld() || (m_spare ? !m_spare->isHeld() : m_keepsShown);
}

bool WaylandFrames::makeFree() {
    m_isAwaited = !canPaint();
    if (m_isAwaited && !m_patience.isActive() && !m_answer) {
        m_patience.start();
    }
    return !m_isAwaited;
}

QRegion WaylandFrames::paint(const FramePainter &painter) {
    if (!m_front) {
        m_front = makeBlack(); // there may be memory by now
    }
    if (!m_front || !canPaint()) {
        return {};
    }
    if (!m_unshown) {
        return paintOnce(painter);
    }
    std::optional<WaylandPixels::Draft> unshown = std::exchange(m_unshown, std::nullopt);
    bool isPainted = false;
    QRegion painted = paintOnce([&](QImage &frame) {
        isPainted = true;
        unshown->copyTo(frame);
        return painter(frame) + unshown->painted;
    });
    if (!isPainted) {
        m_unshown = std::move(unshown);
    }
    return painted;
}

QRegion WaylandFrames::paintOnce(const FramePainter &painter) {
    if (!m_front->isHeld()) {
        return paintInFront(painter);
    }
    if (!m_spare) {
        return paintNext(painter);
    }
    m_spare->copy(*m_front, std::exchange(m_missedBySpare, {}));
    std::swap(m_front, m_spare);
    m_isShown = false;
    return paintInFront(painter);
}

QRegion WaylandFrames::paintInFront(const FramePainter &painter) {
    QRegion painted = m_front->paint(painter);
    if (m_spare) {
        m_missedBySpare += painted;
    }
    return painted;
}

QRegion WaylandFrames::paintNext(const FramePainter &painter) {
    WaylandPixels::Next next = m_front->paintNext(painter);
    if (!next.pixels) {
        if (next.draft.memory) {
            m_unshown = std::move(next.draft);
        }
        return {};
    }
    m_spare = std::exchange(m_front, std::move(next.pixels));
    m_missedBySpare = next.draft.painted;
    m_isShown = false;
    return m_missedBySpare;
}

void WaylandFrames::noteCommitted() {
    const auto now = m_now();
    m_isBurst = now - std::exchange(m_lastCommit, now) < kBurst;
    m_isShown = true;
    m_front->noteCommitted();
}

void WaylandFrames::noteReleased() {
    std::erase_if(m_retired, [](const auto &pixels) { return !pixels->isHeld(); });
    if (m_isShown && !m_front->isHeld()) {
        m_keepsShown = false; // read, though nothing took its place
    }
    if (m_isBurst) {
        m_rest.start();
    } else {
        dropSpare();
    }
    if (m_isAwaited && canPaint()) {
        m_isAwaited = false;
        m_patience.stop();
        m_answer.reset();
        m_becameFree();
    }
}

} // namespace zeph
