// SPDX-License-Identifier: MIT
#include "settings/StoredConsent.h"

#include "ports/UserDefaults.h"

#include <utility>

namespace zeph {

StoredConsent::StoredConsent(UserDefaults &defaults, QString key)
    : m_defaults(defaults), m_key(std::move(key)) {}

ConsentState StoredConsent::state() const {
    const double stored = m_defaults.get<double>(m_key).value_or(0);
    for (const ConsentState state :
         {ConsentState::restricted, ConsentState::denied, ConsentState::granted}) {
        if (stored == static_cast<double>(state)) {
            return state;
        }
    }
    return ConsentState::notDetermined;
}

void StoredConsent::set(ConsentState state) {
    if (state != this->state()) {
        m_defaults.set(m_key, static_cast<double>(state));
        m_changes.send();
    }
}

Subscription StoredConsent::subscribe(std::function<void()> handler) {
    return m_changes.subscribe(std::move(handler));
}

} // namespace zeph
