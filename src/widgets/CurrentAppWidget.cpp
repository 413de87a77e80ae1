// SPDX-License-Identifier: MIT
#include "widgets/BuiltInWidgets.h"

#include "model/AppState.h"
#include "widgets/WidgetContext.h"
#include "widgets/WidgetRows.h"

namespace zeph {

using namespace Qt::StringLiterals;

View currentAppWidget(const WidgetContext &context) {
    const std::optional<QString> &name = *context.state.currentAppName;
    return calmLine(u"app.dashed"_s, name ? u"Right now: "_s + setApart(*name) : u"Settling in"_s,
                    context.palette);
}

} // namespace zeph
