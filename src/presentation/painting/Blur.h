// SPDX-License-Identifier: MIT
#pragma once

class QImage;

namespace zeph {

/// `mask` (Alpha8) blurred like by a Gaussian bell with a deviation of half of `radius` pixels. The
/// blur stays inside the picture: leave `blurReach(radius)` clear pixels around what is blurred.
QImage blurred(const QImage &mask, double radius);

} // namespace zeph
