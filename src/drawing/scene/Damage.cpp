// SPDX-License-Identifier: MIT
#include "drawing/scene/Damage.h"

#include "drawing/scene/ItemBounds.h"
#include "drawing/scene/ItemMatching.h"
#include "drawing/scene/SameLook.h"

namespace zeph {

namespace {

// Beyond this many rectangles it costs more to keep them apart than to paint between them.
constexpr std::size_t mostRectangles = 128;

QRegion unitedRegion(const std::vector<QRect> &rects) {
    // Neighbours in a scene are neighbours on the surface, so they are joined in runs.
    const std::size_t run = (rects.size() + mostRectangles - 1) / mostRectangles;
    QRegion region;
    for (std::size_t first = 0; first < rects.size(); first += run) {
        QRect joined;
        for (std::size_t at = first; at < std::min(first + run, rects.size()); ++at) {
            joined |= rects[at];
        }
        region += joined;
    }
    return region;
}

} // namespace

QRegion damage(const Scene &before, const Scene &after, const SurfacePixels &surface,
               const TextMetrics &metrics) {
    const QRect whole(QPoint(0, 0), surface.size);
    if (!sameLook(before.backdrop, after.backdrop)) {
        return whole;
    }
    const UnmatchedItems unmatched = unmatchedItems(before.items, after.items);
    std::vector<QRect> rects;
    for (const auto *items : {&unmatched.removed, &unmatched.added}) {
        for (const DrawItem *item : *items) {
            const QRect bounds = deviceBounds(*item, surface.scale, metrics) & whole;
            if (!bounds.isEmpty()) {
                rects.push_back(bounds);
            }
        }
    }
    return unitedRegion(rects);
}

} // namespace zeph
