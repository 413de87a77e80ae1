// SPDX-License-Identifier: MIT
#include "adapters/web/HttpPlugin.h"

#include "adapters/web/CurlHttpClient.h"
#include "adapters/web/CurlLibrary.h"

namespace zeph {

namespace {

/// The client together with the library that it needs.
class WholeHttpClient : public HttpClient {
public:
    explicit WholeHttpClient(const HttpOptions &options) : m_client(m_library, options) {}

    HttpResponse send(const HttpRequest &request) override { return m_client.send(request); }
    void cancelAll() override { m_client.cancelAll(); }

private:
    CurlLibrary m_library;
    CurlHttpClient m_client;
};

} // namespace

} // namespace zeph

extern "C" __attribute__((visibility("default"))) zeph::HttpClient *
zephMakeHttpClient(const zeph::HttpOptions &options) {
    return new zeph::WholeHttpClient(options);
}
