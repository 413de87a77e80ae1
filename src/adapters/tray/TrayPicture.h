// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QImage>

namespace zeph {

/// An Alpha8 mask in one colour, premultiplied.
QImage inkedPicture(const QImage &mask, const QColor &ink);

/// The ink that reads on a ground that is seen: dark on a light one, light on a dark one.
QColor inkOn(const QImage &ground);

/// The same for a ground that nobody tells the colour of: light, with a dark seam of `seam` pixels
/// that takes over on a light ground. Larger than the mask by the seam on each side.
QImage seamedPicture(const QImage &mask, int seam);

} // namespace zeph
