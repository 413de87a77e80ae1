// SPDX-License-Identifier: MIT
#include "adapters/web/CurlHttpClient.h"

#include "adapters/web/CurlTransfer.h"
#include "adapters/web/Redirects.h"
#include "adapters/web/WebRequest.h"

#include <QDeadlineTimer>

#include <algorithm>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

constexpr int mostRedirects = 5;

} // namespace

CurlHttpClient::CurlHttpClient(const CurlLibrary & /*library*/, HttpOptions options)
    : m_options(std::move(options)) {}

HttpResponse CurlHttpClient::send(const HttpRequest &request) {
    // A deadline knows negative times as "never".
    const QDeadlineTimer deadline(std::max(request.timeout, std::chrono::milliseconds(0)));
    std::optional<WebAddress> address = WebAddress::parse(request.url);
    if (!address) {
        throw TransportError(u"The address is none of the web."_s);
    }
    const QString firstHost = address->host();
    WebRequest next{*std::move(address), request.method, request.headers, request.body};

    const CurlMulti multi(curl_multi_init());
    if (!multi) {
        throw TransportError(u"The request could not be prepared."_s);
    }
    const CancelSwitch::Scope scope(m_cancelSwitch, multi.get());
    for (int redirects = 0; redirects <= mostRedirects; ++redirects) {
        HttpResponse response =
            CurlTransfer(next, m_options, m_lookups).run(multi.get(), deadline, m_cancelSwitch);
        if (!followRedirect(next, response)) {
            return response;
        }
    }
    throw TransportError(u"%1 redirected more than %2 times."_s.arg(firstHost).arg(mostRedirects));
}

void CurlHttpClient::cancelAll() {
    m_cancelSwitch.cancelAll();
}

} // namespace zeph
