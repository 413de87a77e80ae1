// SPDX-License-Identifier: MIT
#include "adapters/web/CurlLibrary.h"

#include "ports/HttpClient.h"

#include <curl/curl.h>

namespace zeph {

using namespace Qt::StringLiterals;

CurlLibrary::CurlLibrary() {
    qunsetenv("SSLKEYLOGFILE");
    if (curl_global_init(CURL_GLOBAL_DEFAULT) != CURLE_OK) {
        throw TransportError(u"The network library could not be started."_s);
    }
}

CurlLibrary::~CurlLibrary() {
    curl_global_cleanup();
}

} // namespace zeph
