// SPDX-License-Identifier: MIT
#include "widgets/IntegrationWidgets.h"

#include "drawing/view/Views.h"
#include "model/AppState.h"
#include "widgets/AccountBlocks.h"
#include "widgets/RecordContent.h"
#include "widgets/WidgetContext.h"
#include "wording/StatFraming.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

View block(const StripeStats &stats, const WidgetContext &context) {
    const auto money = [&](qint64 cents) {
        return StatFraming::money(cents, stats.currency, context.framing);
    };
    const Palette &palette = context.palette;
    return widgetRows(
        {sectionLabel(blockTitle(stats.label, u"Revenue"_s), palette),
         text(u"%1 earned today"_s.arg(money(stats.todayRevenueCents)),
              textStyle(palette, 16, FontWeight::regular, 0.9)),
         chipGrid({{u"creditcard"_s, u"%1 payments today"_s.arg(stats.todayPayments)},
                   {u"person.badge.plus"_s, u"%1 new today"_s.arg(stats.newCustomersToday)},
                   {u"repeat"_s, u"%1 MRR"_s.arg(money(stats.mrrCents))},
                   {u"person.2"_s, u"%1 active subs"_s.arg(stats.activeSubscriptions)},
                   {u"banknote"_s, u"%1 available"_s.arg(money(stats.availableCents))}},
                  palette)});
}

} // namespace

View revenueWidget(const WidgetContext &context) {
    return accountBlocks(
        *context.state.stripeStats, [](const StripeStats &stats) { return hasSucceeded(stats); },
        [&](const StripeStats &stats) { return block(stats, context); });
}

} // namespace zeph
