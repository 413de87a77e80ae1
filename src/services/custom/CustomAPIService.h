// SPDX-License-Identifier: MIT
#pragma once

#include "model/CustomAPIResult.h"
#include "services/accounts/CustomAPIConfig.h"
#include "services/custom/EndpointListing.h"
#include "services/web/ServiceError.h"

#include <QJsonValue>

namespace zeph {

class HttpClient;

/// Reads values from an endpoint that the user chose. Keeps nothing, so that any thread but the
/// main one may call it.
class CustomAPIService {
public:
    /// `http` outlives this object.
    explicit CustomAPIService(HttpClient &http);

    /// The values of the fields that the answer holds, in order. Never throws a failure: its words
    /// stand in the result, as do those for an answer without any of the fields.
    CustomAPIResult fetch(const CustomAPIConfig &config) const;

    /// Every value that the endpoint answers with, as far as they are listed. Never throws.
    EndpointListing list(const CustomAPIConfig &config) const;

    /// What the endpoint answers to a GET, fragments included. A later header replaces an earlier
    /// one of its name. Throws `ServiceError` for an address without a host and for a refusal,
    /// `TransportError`, or what the parser says.
    QJsonValue fetchJSON(const QString &urlString,
                         const std::vector<HTTPHeaderEntry> &headers) const;

    static ServiceError err(const QString &message);

private:
    HttpClient &m_http;
};

} // namespace zeph
