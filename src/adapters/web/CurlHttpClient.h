// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/web/CancelSwitch.h"
#include "adapters/web/HttpOptions.h"
#include "adapters/web/SharedLookups.h"
#include "ports/HttpClient.h"

namespace zeph {

class CurlLibrary;

/// Requests by libcurl, each with a connection of its own: HTTP/1.1 or 2, TLS always verified, the
/// environment's proxy, no cookies and no cache. Any number of threads may send at once, all of
/// them done when this ends. The process ignores SIGPIPE.
class CurlHttpClient : public HttpClient {
public:
    /// `library` outlives the client. Throws `TransportError` when there is no memory.
    explicit CurlHttpClient(const CurlLibrary &library, HttpOptions options = {});

    HttpResponse send(const HttpRequest &request) override;
    void cancelAll() override;

private:
    HttpOptions m_options;
    SharedLookups m_lookups;
    CancelSwitch m_cancelSwitch;
};

} // namespace zeph
