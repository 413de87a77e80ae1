// SPDX-License-Identifier: MIT
#include "adapters/session/x11/WorkAreas.h"

#include <limits>

namespace zeph {

namespace {

constexpr std::size_t kNumbersOfOne = 4;

bool isPlaceOfArea(int number) {
    return number >= std::numeric_limits<std::int16_t>::min() &&
           number <= std::numeric_limits<std::int16_t>::max();
}

bool isSideOfArea(int number) {
    return number > 0 && number <= std::numeric_limits<std::uint16_t>::max();
}

qint64 pixelsOf(const QRect &rect) {
    return rect.isEmpty() ? 0 : qint64{rect.width()} * rect.height();
}

} // namespace

std::vector<QRect> rectanglesIn(const std::vector<std::uint32_t> &numbers) {
    std::vector<QRect> rectangles;
    for (std::size_t i = 0; i + kNumbersOfOne <= numbers.size(); i += kNumbersOfOne) {
        const auto number = [&](std::size_t which) { return static_cast<int>(numbers[i + which]); };
        if (isPlaceOfArea(number(0)) && isPlaceOfArea(number(1)) && isSideOfArea(number(2)) &&
            isSideOfArea(number(3))) {
            rectangles.emplace_back(number(0), number(1), number(2), number(3));
        }
    }
    return rectangles;
}

std::optional<QRect> areaOn(const QRect &monitor, const std::vector<QRect> &areas) {
    QRect largest;
    for (const QRect &area : areas) {
        const QRect shared = area & monitor;
        if (pixelsOf(shared) > pixelsOf(largest)) {
            largest = shared;
        }
    }
    return largest.isEmpty() ? std::nullopt : std::optional(largest);
}

} // namespace zeph
