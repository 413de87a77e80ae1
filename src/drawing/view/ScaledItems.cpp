// SPDX-License-Identifier: MIT
#include "drawing/view/ScaledItems.h"

namespace zeph {

namespace {

struct Scaler {
    QPointF fixed;
    double scale;

    QPointF moved(const QPointF &point) const { return fixed + (point - fixed) * scale; }
    QRectF moved(const QRectF &rect) const { return {moved(rect.topLeft()), rect.size() * scale}; }

    void operator()(TextItem &item) const {
        item.origin = moved(item.origin);
        item.scale *= scale;
    }
    void operator()(SymbolItem &item) const { item.box = moved(item.box); }
    void operator()(ShapeItem &item) const {
        item.rect = moved(item.rect);
        item.cornerRadius *= scale;
        if (item.bar) {
            item.bar = moved(*item.bar);
        }
    }
    void operator()(ImageItem &item) const {
        item.rect = moved(item.rect);
        item.cornerRadius *= scale;
    }
};

} // namespace

void scaleAbout(const QPointF &fixed, double scale, DrawItem &item) {
    std::visit(Scaler{fixed, scale}, item);
}

} // namespace zeph
