// SPDX-License-Identifier: MIT
#include "widgets/BuiltInWidgets.h"

#include "drawing/view/Views.h"
#include "model/AppState.h"
#include "widgets/WidgetContext.h"
#include "widgets/WidgetRows.h"
#include "wording/StatFraming.h"

namespace zeph {

View topAppWidget(const WidgetContext &context) {
    TextStyle style = textStyle(context.palette, 21, FontWeight::regular, 0.92);
    style.font.design = FontDesign::rounded;
    return text(StatFraming::topAppHeadline(context.state.topApp()), style);
}

} // namespace zeph
