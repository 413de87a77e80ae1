// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/view/View.h"
#include "settings/WidgetKind.h"

namespace zeph {

struct WidgetContext;

/// The widgets of web accounts: one block for each record that has something to say, in the order
/// of the accounts, and the empty view where none has. Each stands in the source file of its name.

View revenueWidget(const WidgetContext &context);
View githubWidget(const WidgetContext &context);
View githubGraphWidget(const WidgetContext &context);

/// `kind` is one of `chartmogul`, `lemonsqueezy`, `dodo`.
View revenueProviderWidget(WidgetKind kind, const WidgetContext &context);

View trustmrrWidget(const WidgetContext &context);
View customAPIsWidget(const WidgetContext &context);
View rssWidget(const WidgetContext &context);

/// `kind` is `openai` or `claude`. Not in the wallpaper's order, as nothing fetches it.
View aiProviderWidget(WidgetKind kind, const WidgetContext &context);

/// Not in the wallpaper's order.
View analyticsWidget(const WidgetContext &context);

} // namespace zeph
