// SPDX-License-Identifier: MIT
#include "drawing/painting/Blur.h"

#include <QImage>

#include <algorithm>
#include <array>
#include <cmath>

namespace zeph {

namespace {

constexpr int passes = 3; // three boxes on end are close to a bell

/// The half widths of the boxes whose sum has the deviation asked for.
std::array<int, passes> boxes(double deviation) {
    const double variance = 12 * deviation * deviation;
    int narrow = static_cast<int>(std::sqrt(variance / passes + 1));
    narrow -= narrow % 2 == 0 ? 1 : 0;
    const double surplus = variance - passes * narrow * narrow - 4 * passes * narrow - 3 * passes;
    const auto narrowCount = std::lround(surplus / (-4.0 * narrow - 4));
    std::array<int, passes> halves{};
    for (int pass = 0; pass < passes; ++pass) {
        const int width = pass < narrowCount ? narrow : narrow + 2;
        halves.at(static_cast<std::size_t>(pass)) = (width - 1) / 2;
    }
    return halves;
}

/// The rows of `source` averaged over 2 `half` + 1 pixels and written as columns, so that two calls
/// blur both ways.
QImage boxBlurredAndTurned(const QImage &source, int half) {
    const int width = source.width();
    QImage turned(source.height(), width, QImage::Format_Alpha8);
    const Division perPixel(2 * half + 1);
    uchar *out = turned.bits();
    const auto stride = turned.bytesPerLine();
    for (int y = 0; y < source.height(); ++y) {
        const uchar *row = source.constScanLine(y);
        int sum = 0;
        for (int x = 0; x < std::min(half, width); ++x) {
            sum += row[x];
        }
        for (int x = 0; x < width; ++x) {
            sum += x + half < width ? row[x + half] : 0;
            out[stride * x + y] = static_cast<uchar>(perPixel(sum + half));
            sum -= x - half >= 0 ? row[x - half] : 0;
        }
    }
    return turned;
}

} // namespace

QImage blurred(const QImage &mask, double radius) {
    QImage result = mask;
    if (radius <= 0) {
        return result;
    }
    for (const int half : boxes(radius / 2)) {
        result = boxBlurredAndTurned(boxBlurredAndTurned(result, half), half);
    }
    return result;
}

} // namespace zeph
