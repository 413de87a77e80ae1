// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/scene/DrawItem.h"

#include <QRect>

namespace zeph {

class TextMetrics;

/// The device pixels that `item` may touch at `scale` device pixels a point: overhanging letters,
/// blurred shadows and smoothed edges included. Nothing of the item is painted outside.
QRect deviceBounds(const DrawItem &item, double scale, const TextMetrics &metrics);

/// The square of whole device pixels that a symbol fills, so that its strokes are crisp.
QRect snappedSquare(const QRectF &box, double scale);

/// `rect` on whole device pixels. Rectangles of one size stay so wherever they lie.
QRect snappedRect(const QRectF &rect, double scale);

/// How far, in device pixels, a blur of `radius` device pixels reaches.
int blurReach(double radius);

} // namespace zeph
