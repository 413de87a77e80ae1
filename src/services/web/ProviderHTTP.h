// SPDX-License-Identifier: MIT
#pragma once

#include "ports/HttpClient.h"
#include "services/web/ServiceError.h"

#include <QJsonValue>

#include <vector>

/// What the smaller services share: one request, one reading of failures, one rule for months.
namespace zeph::ProviderHTTP {

/// Asks for JSON with a GET. `headers` are set in turn and may replace `Accept`. Throws
/// `TransportError`, `ServiceError`, or what the parser says.
QJsonValue json(HttpClient &client, const QString &url,
                const std::vector<HttpHeader> &headers = {});

/// The body as JSON, fragments included, when the status is of success; else throws the service's
/// own words, or "HTTP {status}".
QJsonValue decodeResponse(const HttpResponse &response);

ServiceError err(const QString &message);

inline constexpr qint64 monthsInYear = 12;

/// What `amount` for every `intervalCount` units comes to in a month, cut off towards zero. A unit
/// that is not known counts as a month.
qint64 monthlyCents(qint64 amount, const QString &intervalUnit, qint64 intervalCount);

} // namespace zeph::ProviderHTTP
