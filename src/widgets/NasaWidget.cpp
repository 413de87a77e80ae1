// SPDX-License-Identifier: MIT
#include "widgets/BuiltInWidgets.h"

#include "drawing/palette/Palette.h"
#include "drawing/view/Views.h"
#include "model/AppState.h"
#include "widgets/WidgetContext.h"
#include "widgets/WidgetRows.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

constexpr QSizeF pictureSize(260, 150);

} // namespace

View nasaWidget(const WidgetContext &context) {
    const std::optional<APODInfo> &picture = *context.state.apod;
    if (!picture) {
        return {};
    }
    const Palette &palette = context.palette;
    std::vector<View> rows{sectionLabel(u"Picture of the day"_s, palette)};
    if (picture->imageData) {
        rows.push_back(image(*picture->imageData, pictureSize, 12, palette.text.opacity(0.08)));
    }
    FrameSpec frame;
    frame.maxWidth = pictureSize.width();
    frame.horizontal = HorizontalAlignment::leading;
    rows.push_back(framed(
        wrappingText(picture->title, textStyle(palette, 14, FontWeight::light, 0.85)), frame));
    return widgetRows(std::move(rows));
}

} // namespace zeph
