// SPDX-License-Identifier: MIT
#include "services/revenue/DodoService.h"

#include "ports/Clock.h"
#include "services/revenue/DodoRequests.h"
#include "services/web/Authorization.h"
#include "services/web/Endpoints.h"
#include "services/web/ProviderHTTP.h"
#include "services/web/Saturating.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr int mostPages = 5;

} // namespace

DodoService::DodoService(HttpClient &client, const Endpoints &endpoints, const Clock &clock)
    : m_client(client),
      m_clock(clock),
      m_base(endpoints.dodo),
      m_ratesRoot(endpoints.exchangeRates) {}

RevenueStats DodoService::fetch(const QString &key, const QString &brandID) const {
    RevenueStats stats;
    stats.id = QUuid::createUuid();
    stats.provider = u"dodo"_s;
    stats.providerName = u"Dodo Payments"_s;
    stats.currency = u"USD"_s;
    try {
        const DodoAmounts amounts = fetchAmounts(key, brandID);
        const ExchangeRates rates = amounts.needsRates() ? usdRates() : ExchangeRates();
        const qint64 monthly = DodoAmounts::usdCents(amounts.monthly, rates);
        stats.mrrCents = monthly;
        stats.arrCents = saturating::multiply(monthly, ProviderHTTP::monthsInYear);
        stats.totalRevenueCents = DodoAmounts::usdCents(amounts.total, rates);
        stats.paidCustomers = static_cast<qint64>(amounts.customers.size());
        stats.updated = m_clock.now();
    } catch (const DescribedError &error) {
        stats.error = error.description();
    }
    return stats;
}

DodoAmounts DodoService::fetchAmounts(const QString &key, const QString &brandID) const {
    const std::vector<HttpHeader> headers{bearer(key)};
    const QString brand = DodoRequests::brandSuffix(brandID);
    DodoAmounts amounts;
    bool isMore = true;
    for (int page = 0; isMore && page < mostPages; ++page) {
        isMore = amounts.addSubscriptions(ProviderHTTP::json(
            m_client, DodoRequests::subscriptionsUrl(m_base, page, brand), headers));
    }
    isMore = true;
    for (int page = 0; isMore && page < mostPages; ++page) {
        isMore = amounts.addPayments(
            ProviderHTTP::json(m_client, DodoRequests::paymentsUrl(m_base, page, brand), headers));
    }
    return amounts;
}

ExchangeRates DodoService::usdRates() const {
    try {
        return DodoAmounts::usdRates(
            ProviderHTTP::json(m_client, m_ratesRoot + u"/v6/latest/USD"_s));
    } catch (const DescribedError &) {
        return {};
    }
}

} // namespace zeph
