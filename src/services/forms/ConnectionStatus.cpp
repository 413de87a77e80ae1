// SPDX-License-Identifier: MIT
#include "services/forms/ConnectionStatus.h"

#include "model/AppState.h"
#include "services/accounts/IntegrationConnection.h"
#include "services/catalogue/ServiceCatalogue.h"
#include "wording/StatFraming.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

QUuid accountOf(const StripeStats &record) {
    return record.connectionId;
}
QUuid accountOf(const GitHubStats &record) {
    return record.connectionId;
}
template <typename Record>
QUuid accountOf(const Record &record) {
    return record.id;
}

QString figures(const StripeStats &record, const FramingContext &framing) {
    return u"%1 today, %2 MRR"_s.arg(
        StatFraming::money(record.todayRevenueCents, record.currency, framing),
        StatFraming::money(record.mrrCents, record.currency, framing));
}

QString figures(const GitHubStats &record, const FramingContext &framing) {
    return u"%1 stars, %2 followers, %3 open PRs"_s.arg(
        StatFraming::count(record.totalStars, framing),
        StatFraming::count(record.followers, framing), StatFraming::count(record.openPRs, framing));
}

QString figures(const RevenueStats &record, const FramingContext &framing) {
    QStringList parts;
    if (record.mrrCents) {
        parts << u"%1 MRR"_s.arg(StatFraming::money(*record.mrrCents, record.currency, framing));
    }
    if (record.paidCustomers) {
        parts << u"%1 paid"_s.arg(StatFraming::count(*record.paidCustomers, framing));
    }
    if (record.totalRevenueCents) {
        parts << u"%1 all-time"_s.arg(
            StatFraming::money(*record.totalRevenueCents, record.currency, framing));
    }
    return parts.join(u", "_s);
}

QString figures(const AIUsageStats &record, const FramingContext & /*framing*/) {
    return record.monthCostUSD ? u"$%1 spent this month"_s.arg(*record.monthCostUSD, 0, 'f', 2)
                               : QString();
}

QString figures(const AnalyticsStats &record, const FramingContext &framing) {
    QStringList parts;
    if (record.visitorsToday) {
        parts << u"%1 visitors"_s.arg(StatFraming::count(*record.visitorsToday, framing));
    }
    if (record.pageviewsToday) {
        parts << u"%1 pageviews"_s.arg(StatFraming::count(*record.pageviewsToday, framing));
    }
    return parts.isEmpty() ? QString() : parts.join(u", "_s) + u" today"_s;
}

QString figures(const SimpleIntegrationStats &record, const FramingContext & /*framing*/) {
    constexpr std::size_t shownChips = 2;
    QStringList parts;
    for (std::size_t chip = 0; chip < std::min(record.chips.size(), shownChips); ++chip) {
        parts << record.chips[chip].text;
    }
    return parts.join(u", "_s);
}

template <typename Record>
std::optional<ConnectionStatus> statusIn(const std::vector<Record> &records, const QUuid &account,
                                         const FramingContext &framing) {
    const auto record =
        std::find_if(records.begin(), records.end(), [&account](const Record &candidate) {
            return accountOf(candidate) == account;
        });
    if (record == records.end()) {
        return std::nullopt;
    }
    if (record->error) {
        return ConnectionStatus{*record->error, true};
    }
    if (!record->updated) {
        return std::nullopt;
    }
    const QString told = figures(*record, framing);
    return ConnectionStatus{told.isEmpty() ? u"Connected"_s : u"Connected · "_s + told};
}

} // namespace

std::optional<ConnectionStatus> connectionStatus(const IntegrationConnection &connection,
                                                 const AppState &state,
                                                 const FramingContext &framing) {
    const ServiceRow *const row = serviceRow(connection.provider);
    if (!row) {
        return std::nullopt;
    }
    if (!row->family) {
        return statusIn(*state.aiUsage, connection.id, framing);
    }
    switch (*row->family) {
    case AccountFamily::stripe:
        return statusIn(*state.stripeStats, connection.id, framing);
    case AccountFamily::github:
        return statusIn(*state.githubStats, connection.id, framing);
    case AccountFamily::revenue:
        return statusIn(*state.revenueStats, connection.id, framing);
    case AccountFamily::analytics:
        return statusIn(*state.analyticsStats, connection.id, framing);
    case AccountFamily::simple:
        return statusIn(*state.simpleStats, connection.id, framing);
    }
    return std::nullopt;
}

} // namespace zeph
