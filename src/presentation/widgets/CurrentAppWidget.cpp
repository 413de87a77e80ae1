// SPDX-License-Identifier: MIT
#include "presentation/widgets/BuiltInWidgets.h"

#include "core/AppState.h"
#include "presentation/widgets/WidgetContext.h"
#include "presentation/widgets/WidgetRows.h"

namespace zeph {

using namespace Qt::StringLiterals;

View currentAppWidget(const WidgetContext &context) {
    const std::optional<QString> &name = *context.state.currentAppName;
    return calmLine(u"app.dashed"_s, name ? u"Right now: "_s + setApart(*name) : u"Settling in"_s,
                    context.palette);
}

} // namespace zeph
