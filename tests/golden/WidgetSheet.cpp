// SPDX-License-Identifier: MIT
#include "golden/WidgetSheet.h"

#include "drawing/palette/BackgroundPresets.h"
#include "drawing/view/Views.h"

#include <cmath>

namespace zeph {

namespace {

constexpr double border = 24;

} // namespace

WidgetSheet::WidgetSheet() {
    palette = Palette::custom(BackgroundPresets::colorFor({}), FocusState::off);
}

QImage WidgetSheet::sheet(const std::vector<View> &views) {
    const View all = padded(verticalStack(border, views), {border, border});
    const LayoutContext layout{painted.metrics()};
    const QSizeF natural = all.measure({}, layout);
    const QSize size(static_cast<int>(std::ceil(natural.width())),
                     static_cast<int>(std::ceil(natural.height())));
    Scene scene;
    scene.items.emplace_back(
        ShapeItem{QRectF(QPointF(), size), 0, Fill{BackgroundPresets::colorFor({}), {}}, {}});
    all.place(QRectF(QPointF(), natural), layout, scene.items);
    return painted.opaque(scene, size, 2);
}

} // namespace zeph
