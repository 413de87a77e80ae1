// SPDX-License-Identifier: MIT
#include "adapters/session/x11/RootPixmapTarget.h"

using namespace Qt::StringLiterals;

namespace zeph {

QRegion inPicture(const RootPixmapTarget &target, const QRegion &region) {
    QRegion pixels;
    for (const QRect &rect : region) {
        pixels += reduced(rect, target.enlargement);
    }
    return pixels;
}

QRect reduced(const QRect &rect, int factor) {
    const QPoint begin(rect.left() / factor, rect.top() / factor);
    const QPoint end(rect.right() / factor, rect.bottom() / factor);
    return {begin, end};
}

QString refusalOf(const RootPixmapTarget &target) {
    if (target.pixmap == XCB_PIXMAP_NONE || target.windows.empty()) {
        return u"the program that draws the icons keeps its picture to itself"_s;
    }
    if (target.depth != 24 && target.depth != 32) {
        return u"the program that draws the icons has a picture of %1 bits a pixel, and 24 or 32 "
               u"are needed"_s.arg(target.depth);
    }
    if (target.size.isEmpty()) {
        return u"the program that draws the icons has a picture without pixels"_s;
    }
    return {};
}

} // namespace zeph
