// SPDX-License-Identifier: MIT
#include "widgets/BuiltInWidgets.h"

#include "model/AppState.h"
#include "widgets/AppRankingView.h"
#include "widgets/WidgetContext.h"
#include "widgets/WidgetRows.h"

#include <algorithm>

namespace zeph {

using namespace Qt::StringLiterals;

View appRankingWidget(const WidgetContext &context) {
    const std::vector<AppUsage> &ranked = *context.state.rankedApps;
    const auto shown = std::min<std::ptrdiff_t>(std::ssize(ranked), 6);
    const AppRankingView ranking{{ranked.begin(), ranked.begin() + shown}, context.palette};
    return widgetRows({sectionLabel(u"Where your time went"_s, context.palette), ranking.body()});
}

} // namespace zeph
