// SPDX-License-Identifier: MIT
#include "services/custom/CustomAPIService.h"

#include "base/Blanks.h"
#include "ports/HttpClient.h"
#include "services/custom/EndpointAddress.h"
#include "services/web/Json.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

HttpRequest request(const QUrl &url, const std::vector<HTTPHeaderEntry> &headers) {
    HttpRequest request;
    request.url = url;
    request.setHeader("Accept", "application/json");
    for (const HTTPHeaderEntry &header : headers) {
        const QString name = withoutOuterBlanks(header.name);
        if (!name.isEmpty()) {
            request.setHeader(name.toUtf8(), header.value.toUtf8());
        }
    }
    return request;
}

} // namespace

CustomAPIService::CustomAPIService(HttpClient &http) : m_http(http) {}

CustomAPIResult CustomAPIService::fetch(const CustomAPIConfig &config) const {
    CustomAPIResult result;
    result.id = config.id;
    result.name = config.name;
    try {
        const QJsonValue answer = fetchJSON(config.urlString, config.headers);
        for (const CustomAPIField &field : config.fields) {
            if (const auto leaf = CustomAPI::extract(answer, field.jsonPath)) {
                result.values.push_back({field.id, field.label, CustomAPI::format(*leaf)});
            }
        }
        if (result.values.empty() && !config.fields.empty()) {
            result.error = u"selected paths not found in response"_s;
        }
    } catch (const DescribedError &error) {
        result.error = error.description();
    }
    return result;
}

EndpointListing CustomAPIService::list(const CustomAPIConfig &config) const {
    EndpointListing listing;
    try {
        listing.leaves = CustomAPI::flatten(fetchJSON(config.urlString, config.headers));
    } catch (const DescribedError &error) {
        listing.error = error.description();
    }
    return listing;
}

QJsonValue CustomAPIService::fetchJSON(const QString &urlString,
                                       const std::vector<HTTPHeaderEntry> &headers) const {
    const auto url = endpointAddress(urlString);
    if (!url) {
        throw err(u"Invalid URL"_s);
    }
    const HttpResponse response = m_http.send(request(*url, headers));
    if (!response.isSuccess()) {
        throw err(u"HTTP %1"_s.arg(response.status));
    }
    return json::parse(response.body);
}

ServiceError CustomAPIService::err(const QString &message) {
    return {u"CustomAPI"_s, 0, message};
}

} // namespace zeph
