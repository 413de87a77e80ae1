// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/web/CurlHandles.h"

#include <atomic>
#include <mutex>
#include <vector>

namespace zeph {

/// Wakes everyone who waits for the network, once and for good. Any thread.
class CancelSwitch {
public:
    /// Has `multi` woken at the cancellation, until the end of the scope.
    class Scope {
    public:
        Scope(CancelSwitch &owner, CURLM *multi);
        ~Scope();
        Scope(const Scope &) = delete;
        Scope &operator=(const Scope &) = delete;

    private:
        CancelSwitch &m_owner;
        CURLM *m_multi;
    };

    void cancelAll();
    bool isCancelled() const { return m_isCancelled; }

private:
    std::mutex m_mutex;
    std::atomic<bool> m_isCancelled = false;
    std::vector<CURLM *> m_waiting;
};

} // namespace zeph
