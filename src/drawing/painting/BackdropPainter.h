// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/scene/AmbientBackground.h"

class QImage;
class QRegion;

namespace zeph {

/// Computes the pixels of `background` that lie in `clip` straight into `target`, which is as large
/// as the surface. Each pixel depends on its place alone, whatever the clip; shades between two
/// 8-bit values are dithered by an ordered pattern that keeps their mean.
void paintBackdrop(const AmbientBackground &background, const QRegion &clip, QImage &target);

/// Makes the pixels in `clip` clear, or black where `target` has no alpha.
void clearBackdrop(const QRegion &clip, QImage &target);

} // namespace zeph
