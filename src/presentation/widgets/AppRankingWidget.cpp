// SPDX-License-Identifier: MIT
#include "presentation/widgets/BuiltInWidgets.h"

#include "core/AppState.h"
#include "presentation/widgets/AppRankingView.h"
#include "presentation/widgets/WidgetContext.h"
#include "presentation/widgets/WidgetRows.h"

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
