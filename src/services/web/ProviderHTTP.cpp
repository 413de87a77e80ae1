// SPDX-License-Identifier: MIT
#include "services/web/ProviderHTTP.h"

#include "services/web/Json.h"

#include <algorithm>
#include <limits>

namespace zeph::ProviderHTTP {

using namespace Qt::StringLiterals;

namespace {

constexpr double daysInMonth = 30.44;
constexpr double weeksInMonth = 4.345;

/// What the service says of its refusal; absent when it says nothing that can be shown.
std::optional<QString> refusal(const QByteArray &body) {
    try {
        const auto answer = json::object(json::parse(body));
        if (!answer) {
            return std::nullopt;
        }
        if (auto message = json::text(answer->value(u"message"))) {
            return message;
        }
        const QJsonValue error = answer->value(u"error");
        if (auto message = json::text(error)) {
            return message;
        }
        return json::text(error.toObject().value(u"message"));
    } catch (const DescribedError &) {
        return std::nullopt;
    }
}

/// Towards zero; what does not fit ends at the limit.
qint64 truncated(double value) {
    constexpr double limit = 9223372036854774784.0; // the largest double below 2^63
    return static_cast<qint64>(std::clamp(value, -limit, limit));
}

} // namespace

QJsonValue json(HttpClient &client, const QString &url, const std::vector<HttpHeader> &headers) {
    HttpRequest request;
    request.url = QUrl(url, QUrl::StrictMode);
    if (!request.url.isValid()) {
        throw err(u"Invalid URL"_s);
    }
    request.setHeader("Accept", "application/json");
    for (const HttpHeader &header : headers) {
        request.setHeader(header.name, header.value);
    }
    return decodeResponse(client.send(request));
}

QJsonValue decodeResponse(const HttpResponse &response) {
    if (!response.isSuccess()) {
        throw err(refusal(response.body).value_or(u"HTTP %1"_s.arg(response.status)));
    }
    return json::parse(response.body);
}

ServiceError err(const QString &message) {
    return {u"Provider"_s, 0, message};
}

qint64 monthlyCents(qint64 amount, const QString &intervalUnit, qint64 intervalCount) {
    const qint64 count = std::max<qint64>(intervalCount, 1);
    const QString unit = intervalUnit.toLower();
    if (unit == u"day") {
        return truncated(static_cast<double>(amount) * daysInMonth / static_cast<double>(count));
    }
    if (unit == u"week") {
        return truncated(static_cast<double>(amount) * weeksInMonth / static_cast<double>(count));
    }
    if (unit == u"year") {
        return amount / monthsInYear / count;
    }
    return amount / count;
}

} // namespace zeph::ProviderHTTP
