// SPDX-License-Identifier: MIT
#include "presentation/widgets/BuiltInWidgets.h"

#include "core/AppState.h"
#include "presentation/framing/StatFraming.h"
#include "presentation/view/Views.h"
#include "presentation/widgets/WidgetContext.h"
#include "presentation/widgets/WidgetRows.h"

namespace zeph {

View topAppWidget(const WidgetContext &context) {
    TextStyle style = textStyle(context.palette, 21, FontWeight::regular, 0.92);
    style.font.design = FontDesign::rounded;
    return text(StatFraming::topAppHeadline(context.state.topApp()), style);
}

} // namespace zeph
