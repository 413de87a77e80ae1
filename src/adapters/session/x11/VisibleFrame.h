// SPDX-License-Identifier: MIT
#pragma once

#include <QMargins>
#include <QRectF>

namespace zeph {

/// What panels leave of `frame`, in points: the inner one of the sides of `available`, which is in
/// points as well, and those that `reserved`, in device pixels, takes away. A side of which half of
/// the frame or more would be taken stays where it is.
QRectF visibleFrame(const QRectF &frame, const QRectF &available, const QMargins &reserved,
                    double scale);

} // namespace zeph
