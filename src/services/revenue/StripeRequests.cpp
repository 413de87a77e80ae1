// SPDX-License-Identifier: MIT
#include "services/revenue/StripeRequests.h"

#include "services/web/Authorization.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

QString encoded(const QString &text) {
    return QString::fromLatin1(QUrl::toPercentEncoding(text));
}

} // namespace

HttpRequest stripeRequest(const QString &base, const QString &key, const QString &path,
                          const StripeQuery &query) {
    HttpRequest request;
    request.url = QUrl(base + path, QUrl::StrictMode);
    if (!query.empty()) {
        QStringList items;
        for (const auto &[name, value] : query) {
            items << encoded(name) + u'=' + encoded(value);
        }
        request.url.setQuery(items.join(u'&'), QUrl::StrictMode);
    }
    request.setHeader("Authorization", bearer(key).value);
    return request;
}

StripeQuery stripePage(StripeQuery query, const std::optional<QString> &after) {
    query.emplace_back(u"limit"_s, u"100"_s);
    if (after) {
        query.emplace_back(u"starting_after"_s, *after);
    }
    return query;
}

HttpRequest stripeRatesRequest(const QString &root, const QString &currency) {
    HttpRequest request;
    request.url = QUrl(root + u"/v6/latest/"_s + currency.toUpper(), QUrl::StrictMode);
    return request;
}

} // namespace zeph
