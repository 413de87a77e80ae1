// SPDX-License-Identifier: MIT
#include "integrations/accounts/ConnectedMarks.h"

#include "integrations/accounts/AccountKeys.h"
#include "platform/UserDefaults.h"

namespace zeph {

void ConnectedMarks::set(const QUuid &id, bool isConnected) {
    const std::lock_guard guard(m_lock);
    ++m_decisions[id];
    m_defaults.set(configuredKey(id), isConnected);
}

quint64 ConnectedMarks::promise(const QUuid &id) {
    const std::lock_guard guard(m_lock);
    return ++m_decisions[id];
}

void ConnectedMarks::fulfil(const QUuid &id, quint64 promised) {
    const std::lock_guard guard(m_lock);
    if (m_decisions.value(id) == promised) {
        m_defaults.set(configuredKey(id), true);
    }
}

} // namespace zeph
