// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/view/View.h"

namespace zeph {

struct WidgetContext;

/// The widgets of local and ambient data; each stands in the source file of its name. A widget
/// without data says in a waiting sentence what it waits for, or is the empty view.

View clockWidget(const WidgetContext &context);
View weatherWidget(const WidgetContext &context);
View sunWidget(const WidgetContext &context);
View airQualityWidget(const WidgetContext &context);
View meetingWidget(const WidgetContext &context);
View currentAppWidget(const WidgetContext &context);
View topAppWidget(const WidgetContext &context);
View appRankingWidget(const WidgetContext &context);

/// Reads the history once for the average of the active time.
View rhythmWidget(const WidgetContext &context);

View desktopWidget(const WidgetContext &context);
View machineWidget(const WidgetContext &context);
View remindersWidget(const WidgetContext &context);
View countdownsWidget(const WidgetContext &context);
View progressWidget(const WidgetContext &context);
View devicesWidget(const WidgetContext &context);
View quoteWidget(const WidgetContext &context);
View onThisDayWidget(const WidgetContext &context);
View nasaWidget(const WidgetContext &context);
View issWidget(const WidgetContext &context);

} // namespace zeph
