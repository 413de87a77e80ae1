// SPDX-License-Identifier: MIT
#include "services/analytics/PlausibleAggregate.h"
#include "services/github/ContributionCalendar.h"
#include "services/github/GitHubAnswers.h"
#include "services/revenue/ChartMogulMetrics.h"
#include "services/revenue/DodoAmounts.h"
#include "services/revenue/LemonSqueezyAnswers.h"
#include "services/revenue/StripeAnswers.h"
#include "services/web/ProviderHTTP.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iterator>

namespace {

using namespace zeph;

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

void stripe(const HttpResponse &answer) {
    const QJsonObject page = StripeAnswers::object(answer);
    const ExchangeRates rates = StripeAnswers::rates(answer.body);
    StripeStats stats;
    StripeAnswers::readBalance(page, stats);
    StripeAnswers::addTransactions(page, stats);
    StripeAnswers::addCustomers(page, stats);
    StripeAnswers::addSubscriptions(page, rates, stats);
    StripeAnswers::timeZone(page);
    require(stats.activeSubscriptions == stats.newCustomersToday);
    require(stats.todayPayments >= 0 && stats.todayPayments <= stats.newCustomersToday);
    require(!StripeAnswers::lastOfMore(page) || stats.newCustomersToday > 0);
}

void chartMogul(const HttpResponse &answer) {
    RevenueStats stats;
    ChartMogulMetrics::read(ProviderHTTP::decodeResponse(answer), stats);
}

void lemonSqueezy(const HttpResponse &answer) {
    const QJsonValue body = ProviderHTTP::decodeResponse(answer);
    RevenueStats stats;
    LemonSqueezyAnswers::readStore(body, stats);
    LemonSqueezyAnswers::total(body);
    const auto page = LemonSqueezyAnswers::subscriptions(body);
    require(!page.isFull || body.toObject().size() > 0);
    const LemonSqueezyPrice price = LemonSqueezyAnswers::price(body);
    ProviderHTTP::monthlyCents(price.cents, price.unit, price.count);
}

void dodo(const HttpResponse &answer) {
    const QJsonValue body = ProviderHTTP::decodeResponse(answer);
    const ExchangeRates rates = DodoAmounts::usdRates(body);
    DodoAmounts amounts;
    amounts.addSubscriptions(body);
    amounts.addPayments(body);
    DodoAmounts::usdCents(amounts.monthly, rates);
    DodoAmounts::usdCents(amounts.total, rates);
    require(amounts.monthly.size() == amounts.total.size());
}

void gitHub(const HttpResponse &answer) {
    GitHubAnswers::stars(GitHubAnswers::list(answer));
    GitHubStats stats;
    GitHubAnswers::readProfile(GitHubAnswers::object(answer), true, stats);
}

void checkGraph(const ContributionGraph &graph) {
    require(!graph.rows.empty());
    for (const ContributionRow &row : graph.rows) {
        require(!row.weeks.empty() && !row.id.isNull());
        for (const ContributionWeek &week : row.weeks) {
            for (const ContributionDay &day : week) {
                require(day.level >= 0 && day.level <= 4);
            }
        }
    }
}

void contributions(const HttpResponse &answer) {
    const auto user = ContributionCalendar::user(answer);
    if (!user) {
        return;
    }
    for (const auto layout : {ContributionLayout::m3, ContributionLayout::y4}) {
        const auto graph = ContributionCalendar::graph(*user, layout, {2025, 2024, 2023, 2022});
        if (graph) {
            checkGraph(*graph);
            const auto kept = weeksKept(layout);
            require(!kept || std::ssize(graph->rows.front().weeks) <= *kept);
        }
    }
}

void plausible(const HttpResponse &answer) {
    AnalyticsStats stats;
    PlausibleAggregate::read(ProviderHTTP::decodeResponse(answer), stats);
}

using Parser = void (*)(const HttpResponse &answer);
constexpr Parser parsers[] = {stripe, chartMogul,    lemonSqueezy, dodo,
                              gitHub, contributions, plausible};

} // namespace

/// The first byte, a digit in the corpus, chooses the service; an upper-case letter is a refusal.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    HttpResponse answer;
    answer.status = data[0] >= 'A' && data[0] <= 'Z' ? 403 : 200;
    answer.body =
        QByteArray(reinterpret_cast<const char *>(data + 1), static_cast<qsizetype>(size - 1));
    try {
        parsers[(data[0] + 1U) % std::size(parsers)](answer);
    } catch (const DescribedError &error) {
        require(!error.description().isNull());
    }
    return 0;
}
