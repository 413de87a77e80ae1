// SPDX-License-Identifier: MIT
#include "adapters/web/SharedLookups.h"

#include "ports/HttpClient.h"

namespace zeph {

using namespace Qt::StringLiterals;

SharedLookups::SharedLookups() : m_share(curl_share_init()) {
    CURLSH *share = m_share.get();
    const bool isReady =
        share != nullptr && curl_share_setopt(share, CURLSHOPT_USERDATA, this) == CURLSHE_OK &&
        curl_share_setopt(share, CURLSHOPT_LOCKFUNC, &SharedLookups::lock) == CURLSHE_OK &&
        curl_share_setopt(share, CURLSHOPT_UNLOCKFUNC, &SharedLookups::unlock) == CURLSHE_OK &&
        curl_share_setopt(share, CURLSHOPT_SHARE, CURL_LOCK_DATA_DNS) == CURLSHE_OK &&
        curl_share_setopt(share, CURLSHOPT_SHARE, CURL_LOCK_DATA_SSL_SESSION) == CURLSHE_OK;
    if (!isReady) {
        throw TransportError(u"The network library could not be started."_s);
    }
}

void SharedLookups::lock(CURL * /*handle*/, curl_lock_data data, curl_lock_access /*access*/,
                         void *self) {
    static_cast<SharedLookups *>(self)->m_mutexes.at(data).lock();
}

void SharedLookups::unlock(CURL * /*handle*/, curl_lock_data data, void *self) {
    static_cast<SharedLookups *>(self)->m_mutexes.at(data).unlock();
}

} // namespace zeph
