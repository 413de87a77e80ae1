// SPDX-License-Identifier: MIT
#include "ContractServer.h"

#include <QFile>

#include <array>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

struct Contract {
    const char *request; ///< what a request line begins with; the first that fits counts
    const char *file;
};

constexpr std::array contracts{
    Contract{"GET /stripe/v1/balance_transactions?", "stripe/balance_transactions-2.json"},
    Contract{"GET /stripe/v1/balance ", "stripe/balance.json"},
    Contract{"GET /stripe/v1/account ", "stripe/account.json"},
    Contract{"GET /stripe/v1/customers?", "stripe/customers.json"},
    Contract{"GET /stripe/v1/subscriptions?", "stripe/subscriptions.json"},
    Contract{"GET /exchangerates/", "exchangerates/usd.json"},
    Contract{"POST /github/graphql ", "github/graphql-three-years.json"},
    Contract{"GET /github/users/mira/repos", "github/repos.json"},
    Contract{"GET /github/user/repos", "github/repos.json"},
    Contract{"GET /github/users/mira ", "github/users-mira.json"},
    Contract{"GET /github/user ", "github/user.json"},
    Contract{"GET /github/search/issues", "github/search-issues.json"},
    Contract{"GET /chartmogul/v1/metrics/all", "chartmogul/metrics-all.json"},
    Contract{"GET /lemonsqueezy/v1/stores", "lemonsqueezy/stores.json"},
    Contract{"GET /lemonsqueezy/v1/prices/1001", "lemonsqueezy/prices-1001.json"},
    Contract{"GET /lemonsqueezy/v1/prices/", "lemonsqueezy/prices-1002.json"},
    Contract{"GET /lemonsqueezy/v1/subscriptions", "lemonsqueezy/subscriptions-1.json"},
    Contract{"GET /dodo/subscriptions", "dodo/subscriptions-0.json"},
    Contract{"GET /dodo/payments", "dodo/payments-0.json"},
    Contract{"GET /plausible/", "plausible/aggregate.json"},
    Contract{"GET /trustmrr/", "trustmrr/startup.json"},
    Contract{"GET /ahrefs/", "ahrefs/domain-rating.json"},
    Contract{"GET /coingecko/", "coingecko/bitcoin.json"},
    Contract{"GET /hackernews/", "hackernews/user.json"},
    Contract{"GET /reddit/", "reddit/old-profile-followers.html"},
    Contract{"GET /newreddit/", "reddit/profile.html"},
    Contract{"GET /producthunt/", "producthunt/profile.html"},
    Contract{"GET /bluesky/", "bluesky/profile.json"},
    Contract{"GET /currency/", "frankfurter/usd-inr.json"},
    Contract{"GET /vercel/", "vercel/deployments.json"},
    Contract{"GET /netlify/", "netlify/sites.json"},
    Contract{"GET /gumroad/", "gumroad/sales.json"},
    Contract{"GET /polar/", "polar/metrics.json"},
    Contract{"GET /weather/", "open-meteo/forecast.json"},
    Contract{"GET /airquality/", "open-meteo/air-quality.json"},
    Contract{"GET /zenquotes/", "zen-quotes/random.json"},
    Contract{"GET /quotable/", "quotable/random.json"},
    Contract{"GET /onthisday/", "on-this-day/events.json"},
    Contract{"GET /station/", "station/25544.json"},
    Contract{"GET /feed/", "rss/blog.atom"},
    Contract{"GET /custom/", "custom/status.json"}};

QByteArray framed(const QByteArray &status, const QByteArray &body) {
    return "HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(body.size()) +
           "\r\n\r\n" + body;
}

QByteArray fixture(const char *name) {
    QFile file(QLatin1String(ZEPH_FIXTURES "/") + QLatin1String(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

bool ContractServer::sawHeaderText(const QByteArray &text) const {
    const std::scoped_lock lock(m_mutex);
    return m_headers.contains(text);
}

void ContractServer::serve(LoopbackConnection &connection) {
    while (const auto request = connection.readRequest()) {
        ++m_requests;
        {
            const std::scoped_lock lock(m_mutex);
            for (const HttpHeader &header : request->headers) {
                m_headers += header.name + ": " + header.value + "\n";
            }
        }
        if (!connection.write(answerTo(*request))) {
            return;
        }
    }
}

QByteArray ContractServer::answerTo(const ReceivedRequest &request) const {
    if (m_isFailing) {
        return framed("503 Service Unavailable", "<html>Back soon</html>");
    }
    const QByteArray line = request.method + " " + request.target + " ";
    for (const Contract &contract : contracts) {
        if (line.startsWith(contract.request)) {
            return framed("200 OK", fixture(contract.file));
        }
    }
    return framed("404 Not Found", "{}");
}

} // namespace zeph
