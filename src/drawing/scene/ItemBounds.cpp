// SPDX-License-Identifier: MIT
#include "drawing/scene/ItemBounds.h"

#include "drawing/scene/TextMetrics.h"

#include <algorithm>
#include <cmath>

namespace zeph {

namespace {

QRectF toDevice(const QRectF &rect, double scale) {
    return {rect.topLeft() * scale, rect.size() * scale};
}

struct DeviceBounds {
    double scale;
    const TextMetrics &metrics;

    QRect operator()(const TextItem &item) const {
        const double total = scale * item.scale;
        const QSizeF box = metrics.size(item.text, item.style.font) * total;
        // Italics and stacked marks of other scripts leave the line box.
        const int overhang = static_cast<int>(std::ceil(item.style.font.size * total / 4)) + 1;
        const QRect letters = QRectF(item.origin * scale, box)
                                  .toAlignedRect()
                                  .adjusted(-overhang, -overhang, overhang, overhang);
        if (!item.style.shadow) {
            return letters;
        }
        const int reach = blurReach(item.style.shadow->radius * total);
        const int down = static_cast<int>(std::lround(item.style.shadow->offsetY * total));
        return letters.united(letters.translated(0, down).adjusted(-reach, -reach, reach, reach));
    }

    QRect operator()(const SymbolItem &item) const { return snappedSquare(item.box, scale); }

    QRect operator()(const ShapeItem &item) const {
        return item.bar ? snappedRect(item.rect, scale)
                        : toDevice(item.rect, scale).toAlignedRect();
    }

    QRect operator()(const ImageItem &item) const {
        return toDevice(item.rect, scale).toAlignedRect();
    }
};

} // namespace

QRect deviceBounds(const DrawItem &item, double scale, const TextMetrics &metrics) {
    return std::visit(DeviceBounds{scale, metrics}, item);
}

QRect snappedSquare(const QRectF &box, double scale) {
    const auto whole = [scale](double points) {
        return static_cast<int>(std::lround(points * scale));
    };
    const int side = std::max(1, whole(std::min(box.width(), box.height())));
    return {whole(box.x()), whole(box.y()), side, side};
}

QRect snappedRect(const QRectF &rect, double scale) {
    const auto whole = [scale](double points) {
        return static_cast<int>(std::lround(points * scale));
    };
    return {whole(rect.x()), whole(rect.y()), std::max(1, whole(rect.width())),
            std::max(1, whole(rect.height()))};
}

int blurReach(double radius) {
    return radius > 0 ? static_cast<int>(std::ceil(radius * 1.5)) + 3 : 0;
}

} // namespace zeph
