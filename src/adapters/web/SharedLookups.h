// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/web/CurlHandles.h"

#include <array>
#include <mutex>

namespace zeph {

/// Addresses of hosts and sessions of TLS that one request found and the next may use, on any
/// thread. Holds a bounded number of each; outlives the requests.
class SharedLookups {
public:
    /// Throws `TransportError` when there is no memory.
    SharedLookups();
    SharedLookups(const SharedLookups &) = delete;
    SharedLookups &operator=(const SharedLookups &) = delete;

    CURLSH *handle() const { return m_share.get(); }

private:
    static void lock(CURL *handle, curl_lock_data data, curl_lock_access access, void *self);
    static void unlock(CURL *handle, curl_lock_data data, void *self);

    std::array<std::mutex, CURL_LOCK_DATA_LAST> m_mutexes;
    CurlShare m_share; // its end takes the mutexes
};

} // namespace zeph
