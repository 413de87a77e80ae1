// SPDX-License-Identifier: MIT
#include "services/revenue/StripeService.h"

#include "ports/Calendar.h"
#include "ports/Clock.h"
#include "services/revenue/StripeAnswers.h"
#include "services/web/Endpoints.h"
#include "services/web/Saturating.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr int mostPages = 20;

} // namespace

StripeService::StripeService(HttpClient &client, const Endpoints &endpoints, const Clock &clock,
                             const Calendar &calendar)
    : m_client(client),
      m_clock(clock),
      m_calendar(calendar),
      m_base(endpoints.stripe + u"/v1/"_s),
      m_ratesRoot(endpoints.exchangeRates) {}

StripeStats StripeService::fetch(const QString &key) const {
    StripeStats stats;
    stats.connectionId = QUuid::createUuid();
    try {
        StripeAnswers::readBalance(get(key, u"balance"_s), stats);
    } catch (const DescribedError &error) {
        stats.error = error.description();
        return stats;
    }
    const ExchangeRates rates = fetchRates(stats.currency);
    const StripeQuery today{{u"created[gte]"_s, startOfToday(accountTimeZone(key))}};
    paginate(key, u"balance_transactions"_s, today,
             [&](const QJsonObject &page) { StripeAnswers::addTransactions(page, stats); });
    paginate(key, u"customers"_s, today,
             [&](const QJsonObject &page) { StripeAnswers::addCustomers(page, stats); });
    paginate(key, u"subscriptions"_s, {{u"status"_s, u"active"_s}},
             [&](const QJsonObject &page) { StripeAnswers::addSubscriptions(page, rates, stats); });
    stats.updated = m_clock.now();
    return stats;
}

QJsonObject StripeService::get(const QString &key, const QString &path,
                               const StripeQuery &query) const {
    return StripeAnswers::object(m_client.send(stripeRequest(m_base, key, path, query)));
}

void StripeService::paginate(const QString &key, const QString &path, const StripeQuery &query,
                             const std::function<void(const QJsonObject &page)> &each) const {
    std::optional<QString> after;
    for (int page = 0; page < mostPages; ++page) {
        QJsonObject body;
        try {
            body = get(key, path, stripePage(query, after));
        } catch (const DescribedError &) {
            return; // what was read so far counts
        }
        each(body);
        after = StripeAnswers::lastOfMore(body);
        if (!after) {
            return;
        }
    }
}

std::optional<QString> StripeService::accountTimeZone(const QString &key) const {
    try {
        return StripeAnswers::timeZone(get(key, u"account"_s));
    } catch (const DescribedError &) {
        return std::nullopt;
    }
}

ExchangeRates StripeService::fetchRates(const QString &base) const {
    const HttpRequest request = stripeRatesRequest(m_ratesRoot, base);
    if (!request.url.isValid()) {
        return {};
    }
    try {
        return StripeAnswers::rates(m_client.send(request).body);
    } catch (const DescribedError &) {
        return {};
    }
}

QString StripeService::startOfToday(const std::optional<QString> &zone) const {
    const Date now = m_clock.now();
    const auto there = zone ? m_calendar.startOfDay(now, *zone) : std::nullopt;
    const Date start = there ? *there : m_calendar.startOfDay(now);
    return QString::number(saturating::truncated(start.secondsSince1970));
}

} // namespace zeph
