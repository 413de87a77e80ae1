// SPDX-License-Identifier: MIT
#include "widgets/AmbientBackgroundView.h"

#include <cmath>

namespace zeph {

AmbientBackground AmbientBackgroundView::picture(Date now) const {
    if (!animate) {
        return AmbientBackground::still(palette);
    }
    const double sinceReference = now.secondsSince1970 - referenceDateSince1970;
    return AmbientBackground::animated(palette, energy, std::floor(sinceReference * fps) / fps);
}

} // namespace zeph
