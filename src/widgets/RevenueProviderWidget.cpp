// SPDX-License-Identifier: MIT
#include "widgets/IntegrationWidgets.h"

#include "model/AppState.h"
#include "widgets/AccountBlocks.h"
#include "widgets/RecordContent.h"
#include "widgets/WidgetContext.h"
#include "wording/StatFraming.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

/// What the provider does not tell has no chip.
std::vector<MetricChip> saasChips(const RevenueStats &stats, const FramingContext &framing) {
    std::vector<MetricChip> chips;
    const auto add = [&chips](const QString &icon, const QString &words) {
        chips.push_back({icon, words});
    };
    const auto money = [&](qint64 cents) {
        return StatFraming::money(cents, stats.currency, framing);
    };
    if (stats.mrrCents) {
        add(u"repeat"_s, u"%1 MRR"_s.arg(money(*stats.mrrCents)));
    }
    if (stats.arrCents) {
        add(u"calendar"_s, u"%1 ARR"_s.arg(money(*stats.arrCents)));
    }
    if (stats.paidCustomers) {
        add(u"person.2"_s,
            u"%1 paid customers"_s.arg(StatFraming::count(*stats.paidCustomers, framing)));
    }
    if (stats.trialUsers) {
        add(u"hourglass"_s, u"%1 on trial"_s.arg(StatFraming::count(*stats.trialUsers, framing)));
    }
    if (stats.totalRevenueCents) {
        add(u"banknote"_s, u"%1 all-time"_s.arg(money(*stats.totalRevenueCents)));
    }
    return chips;
}

} // namespace

View revenueProviderWidget(WidgetKind kind, const WidgetContext &context) {
    return accountBlocks(
        *context.state.revenueStats,
        [kind](const RevenueStats &stats) { return hasSucceeded(stats, kind); },
        [&](const RevenueStats &stats) {
            return chipBlock(blockTitle(stats.label, stats.providerName),
                             saasChips(stats, context.framing), context.palette);
        });
}

} // namespace zeph
