// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QRectF>

class QPainter;

/// What the first start lies on: a night that turns to morning. `rise` tells how far the sun has
/// come, from 0 to 1; `unit` how many pixels a designed one is.
namespace zeph::ui {

/// The sky with the light around the sun, `pixels` large.
QImage dawnSky(const QSize &pixels, double unit, double rise);

/// The sun, which comes up from the lower edge of `sky`.
void paintSun(QPainter &painter, const QRectF &sky, double unit, double rise);

} // namespace zeph::ui
