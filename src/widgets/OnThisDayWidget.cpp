// SPDX-License-Identifier: MIT
#include "widgets/BuiltInWidgets.h"

#include "drawing/view/Views.h"
#include "model/AppState.h"
#include "widgets/WidgetContext.h"
#include "widgets/WidgetRows.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

// The quote's measure, so that the two texts at the head of the wallpaper wrap alike.
constexpr double textWidth = 520;

} // namespace

View onThisDayWidget(const WidgetContext &context) {
    const std::optional<OnThisDayInfo> &event = *context.state.onThisDay;
    if (!event) {
        return {};
    }
    FrameSpec frame;
    frame.maxWidth = textWidth;
    frame.horizontal = HorizontalAlignment::leading;
    return widgetRows({sectionLabel(u"On this day"_s, context.palette),
                       framed(wrappingText(event->year + u" · "_s + event->text,
                                           textStyle(context.palette, 15, FontWeight::light, 0.85)),
                              frame)});
}

} // namespace zeph
