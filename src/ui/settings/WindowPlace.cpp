// SPDX-License-Identifier: MIT
#include "ui/settings/WindowPlace.h"

#include <algorithm>

namespace zeph::ui {

namespace {

constexpr int gapToEdge = 24;

} // namespace

QPoint placeAtRightEdge(const QRect &visible, const QSize &frame) {
    const int right = visible.x() + visible.width();
    const int bottom = visible.y() + visible.height();
    const int below = std::max(0, visible.height() - frame.height()) / 2;
    // A window as wide as the screen stays on it.
    const int left = std::max(visible.x(), right - frame.width() - gapToEdge);
    return {left, bottom - below - frame.height()};
}

} // namespace zeph::ui
