// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>

namespace zeph::ui {

/// Where a window whose frame has the size `frame` hugs the right edge of what is `visible` of a
/// screen: in the middle of its height, its bottom at the screen's where it is taller.
QPoint placeAtRightEdge(const QRect &visible, const QSize &frame);

} // namespace zeph::ui
