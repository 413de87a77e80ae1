// SPDX-License-Identifier: MIT
#include "drawing/painting/BackdropPainter.h"

#include "base/StartedThread.h"
#include "drawing/painting/DitherPattern.h"

#include <QImage>
#include <QRegion>

#include <algorithm>
#include <array>
#include <cmath>

namespace zeph {

namespace {

constexpr int chunk = 256;  // pixels computed at once; small enough for the first cache
constexpr int channels = 3; // red, green, blue

// Pixels from which a second thread takes half: some milliseconds of work.
constexpr qint64 sharedFrom = 1'000'000;

using Light = std::array<float, channels>;

// The loops over pixels, for what the processor has. Both forms round alike.
#if defined(__x86_64__) && defined(__linux__) && !defined(__SANITIZE_ADDRESS__) &&                 \
    !defined(__SANITIZE_THREAD__) && !defined(__clang__)
#define ZEPH_WIDE __attribute__((target_clones("avx2", "default")))
#else
#define ZEPH_WIDE
#endif

/// The channels of the 8-bit value that `color` becomes, 0 to 255.
Light lightOf(const Color &color) {
    const quint32 argb = color.argb();
    return {static_cast<float>(argb >> 16 & 255U), static_cast<float>(argb >> 8 & 255U),
            static_cast<float>(argb & 255U)};
}

struct Disc {
    float centerX;
    float centerY;
    float radius;
    float alpha;
};

/// What the discs leave of the gradient in a run of pixels, 0 to 1.
using Remainder = std::array<float, chunk>;

ZEPH_WIDE void coverBy(const Disc &disc, int left, int count, float down, Remainder &remainder) {
    const float squareDown = down * down;
    const float perPixel = 1 / disc.radius;
    const float start = static_cast<float>(left) + 0.5F - disc.centerX;
    for (int at = 0; at < count; ++at) {
        const float across = start + static_cast<float>(at);
        const float distance = std::sqrt(across * across + squareDown) * perPixel;
        const float cover = disc.alpha * (1 - (distance < 1 ? distance : 1));
        remainder[static_cast<std::size_t>(at)] *= 1 - cover;
    }
}

struct Row {
    Light accent;     ///< under the veil, dither threshold left out
    Light difference; ///< from the accent to the gradient of this row, under the veil
    std::array<float, chunk + ditherSide> thresholds;
};

ZEPH_WIDE void writePixels(const Row &row, const float *thresholds, const Remainder &remainder,
                           int count, quint32 *pixels) {
    for (int at = 0; at < count; ++at) {
        const float left = remainder[static_cast<std::size_t>(at)];
        const float lift = thresholds[at];
        const int red = static_cast<int>(row.accent[0] + row.difference[0] * left + lift);
        const int green = static_cast<int>(row.accent[1] + row.difference[1] * left + lift);
        const int blue = static_cast<int>(row.accent[2] + row.difference[2] * left + lift);
        pixels[at] = 0xff000000U | static_cast<quint32>(red << 16 | green << 8 | blue);
    }
}

class Backdrop {
public:
    Backdrop(const AmbientBackground &background, const QSize &size)
        : m_top(lightOf(background.top)),
          m_bottom(lightOf(background.bottom)),
          m_accent(lightOf(background.accent)),
          m_height(static_cast<float>(size.height())) {
        for (int index = 0; index < softDiscCount; ++index) {
            const SoftDisc disc = softDisc(background, index, size.width(), size.height());
            m_discs.at(static_cast<std::size_t>(index)) = {
                static_cast<float>(disc.centerX), static_cast<float>(disc.centerY),
                static_cast<float>(disc.radius), static_cast<float>(disc.alpha)};
        }
    }

    Row row(int y) const {
        Row row{};
        const float part = (static_cast<float>(y) + 0.5F) / m_height;
        constexpr auto veil = static_cast<float>(veiledLight);
        for (std::size_t channel = 0; channel < channels; ++channel) {
            const float gradient = m_top[channel] + (m_bottom[channel] - m_top[channel]) * part;
            row.accent[channel] = m_accent[channel] * veil;
            row.difference[channel] = (gradient - m_accent[channel]) * veil;
        }
        for (int x = 0; x < chunk + ditherSide; ++x) {
            row.thresholds[static_cast<std::size_t>(x)] =
                ditherThreshold(x % ditherSide, y % ditherSide);
        }
        return row;
    }

    void paint(const Row &row, int left, int count, int y, quint32 *pixels) const {
        Remainder remainder;
        remainder.fill(1);
        for (const Disc &disc : m_discs) {
            const float down = static_cast<float>(y) + 0.5F - disc.centerY;
            if (touches(disc, left, count, down)) {
                coverBy(disc, left, count, down, remainder);
            }
        }
        writePixels(row, row.thresholds.data() + left % ditherSide, remainder, count, pixels);
    }

private:
    static bool touches(const Disc &disc, int left, int count, float down) {
        return std::abs(down) < disc.radius &&
               disc.centerX + disc.radius > static_cast<float>(left) &&
               disc.centerX - disc.radius < static_cast<float>(left + count);
    }

    Light m_top;
    Light m_bottom;
    Light m_accent;
    float m_height;
    std::array<Disc, softDiscCount> m_discs{};
};

/// The lines of an image that may be written from several threads at once.
struct Lines {
    uchar *first;
    qsizetype bytesPerLine;

    quint32 *at(int y) const { return reinterpret_cast<quint32 *>(first + y * bytesPerLine); }
};

void paintRect(const Backdrop &backdrop, const QRect &rect, const Lines &lines) {
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
        const Row row = backdrop.row(y);
        for (int left = rect.left(); left <= rect.right(); left += chunk) {
            const int count = std::min(chunk, rect.right() + 1 - left);
            backdrop.paint(row, left, count, y, lines.at(y) + left);
        }
    }
}

} // namespace

void paintBackdrop(const AmbientBackground &background, const QRegion &clip, QImage &target) {
    const Backdrop backdrop(background, target.size());
    const Lines lines{target.bits(), target.bytesPerLine()};
    for (const QRect &part : clip) {
        const QRect rect = part & target.rect();
        if (qint64{rect.width()} * rect.height() < sharedFrom) {
            paintRect(backdrop, rect, lines);
            continue;
        }
        const int half = rect.height() / 2;
        const auto paintLower = [&backdrop, &lines, below = rect.adjusted(0, half, 0, 0)] {
            paintRect(backdrop, below, lines);
        };
        std::optional<std::thread> lower = startedThread(paintLower);
        paintRect(backdrop, rect.adjusted(0, 0, 0, half - rect.height()), lines);
        lower ? lower->join() : paintLower();
    }
}

void clearBackdrop(const QRegion &clip, QImage &target) {
    const quint32 clear = target.hasAlphaChannel() ? 0U : 0xff000000U;
    for (const QRect &part : clip) {
        const QRect rect = part & target.rect();
        for (int y = rect.top(); y <= rect.bottom(); ++y) {
            std::fill_n(reinterpret_cast<quint32 *>(target.scanLine(y)) + rect.left(), rect.width(),
                        clear);
        }
    }
}

} // namespace zeph
