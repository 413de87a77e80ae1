// SPDX-License-Identifier: MIT
#include "adapters/web/CancelSwitch.h"

namespace zeph {

CancelSwitch::Scope::Scope(CancelSwitch &owner, CURLM *multi) : m_owner(owner), m_multi(multi) {
    const std::scoped_lock lock(m_owner.m_mutex);
    m_owner.m_waiting.push_back(m_multi);
}

CancelSwitch::Scope::~Scope() {
    const std::scoped_lock lock(m_owner.m_mutex);
    std::erase(m_owner.m_waiting, m_multi);
}

void CancelSwitch::cancelAll() {
    const std::scoped_lock lock(m_mutex);
    m_isCancelled = true;
    for (CURLM *multi : m_waiting) {
        curl_multi_wakeup(multi);
    }
}

} // namespace zeph
