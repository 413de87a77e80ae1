// SPDX-License-Identifier: MIT
#include "adapters/web/CurlLibrary.h"

#include "ports/HttpClient.h"

#include <curl/curl.h>
#include <openssl/crypto.h>

namespace zeph {

using namespace Qt::StringLiterals;

CurlLibrary::CurlLibrary() {
    qunsetenv("SSLKEYLOGFILE");
    // By exit() the cipher library would be taken away from transfers that are under way on other
    // threads.
    OPENSSL_init_crypto(OPENSSL_INIT_NO_ATEXIT, nullptr);
    if (curl_global_init(CURL_GLOBAL_DEFAULT) != CURLE_OK) {
        throw TransportError(u"The network library could not be started."_s);
    }
}

CurlLibrary::~CurlLibrary() {
    curl_global_cleanup();
}

} // namespace zeph
