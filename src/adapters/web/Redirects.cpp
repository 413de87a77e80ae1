// SPDX-License-Identifier: MIT
#include "adapters/web/Redirects.h"

#include "adapters/web/WebRequest.h"

#include <utility>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

constexpr int movedPermanently = 301;
constexpr int found = 302;
constexpr int seeOther = 303;
constexpr int temporaryRedirect = 307;
constexpr int permanentRedirect = 308;

bool isRedirect(int status) {
    return status == movedPermanently || status == found || status == seeOther ||
           status == temporaryRedirect || status == permanentRedirect;
}

/// Whether the next request only fetches what came of this one.
bool becomesGet(const QByteArray &method, int status) {
    if (status == seeOther) {
        return method != "GET" && method != "HEAD";
    }
    return (status == movedPermanently || status == found) && method == "POST";
}

void dropBody(WebRequest &request) {
    request.method = "GET";
    request.body.clear();
    std::erase_if(request.headers, [](const HttpHeader &header) {
        return header.name.toLower().startsWith("content-");
    });
}

} // namespace

bool followRedirect(WebRequest &request, const HttpResponse &response) {
    const QByteArray location = response.header("Location").value_or(QByteArray());
    if (!isRedirect(response.status) || location.isEmpty()) {
        return false;
    }
    const QString host = request.address.host();
    std::optional<WebAddress> target = request.address.resolved(location);
    if (!target) {
        throw TransportError(u"%1 redirected to what is no address of the web."_s.arg(host));
    }
    if (request.address.isEncrypted() && !target->isEncrypted()) {
        throw TransportError(u"%1 redirected to an address without encryption."_s.arg(host));
    }
    if (becomesGet(request.method, response.status)) {
        dropBody(request);
    }
    if (!request.address.isSameOrigin(*target)) {
        request.headers.clear();
        // Its headers tell what a body is, and it may hold secrets as they do.
        if (!request.body.isEmpty()) {
            throw TransportError(u"%1 redirected what was sent to another host."_s.arg(host));
        }
    }
    request.address = *std::move(target);
    return true;
}

} // namespace zeph
