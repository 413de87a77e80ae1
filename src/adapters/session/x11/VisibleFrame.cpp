// SPDX-License-Identifier: MIT
#include "adapters/session/x11/VisibleFrame.h"

#include <algorithm>

namespace zeph {

namespace {

// A panel that leaves less than half of a display is no panel that content could make way for.
double usableInset(double inset, double extent) {
    return 2 * inset < extent ? std::max(inset, 0.0) : 0;
}

} // namespace

QRectF visibleFrame(const QRectF &frame, const QRectF &available, const QMargins &reserved,
                    double scale) {
    const QMarginsF points = reserved.toMarginsF() / scale;
    const auto inset = [](double one, double other, double extent) {
        return std::max(usableInset(one, extent), usableInset(other, extent));
    };
    return frame.marginsRemoved(
        {inset(points.left(), available.left() - frame.left(), frame.width()),
         inset(points.top(), available.top() - frame.top(), frame.height()),
         inset(points.right(), frame.right() - available.right(), frame.width()),
         inset(points.bottom(), frame.bottom() - available.bottom(), frame.height())});
}

} // namespace zeph
