// SPDX-License-Identifier: MIT
#include "adapters/places/LocationPermission.h"

#include <utility>

namespace zeph {

namespace {

constexpr std::chrono::minutes refusalAge{1};

} // namespace

LocationPermission::LocationPermission(Consent &consent, MonotonicNow now)
    : m_consent(consent),
      m_now(std::move(now)),
      m_subscription(consent.subscribe([this] { consentChanged(); })) {}

LocationAuthorization LocationPermission::status() const {
    if (m_refusedAt) {
        return m_now() - *m_refusedAt < refusalAge ? LocationAuthorization::denied
                                                   : LocationAuthorization::notDetermined;
    }
    return static_cast<LocationAuthorization>(m_consent.state()); // the numbers are the same
}

void LocationPermission::grant() {
    forgetRefusal();
    m_consent.set(ConsentState::granted);
}

void LocationPermission::refuse() {
    m_refusedAt = m_now();
    m_hindrance = LocationHindrance::refused;
}

void LocationPermission::forgetRefusal() {
    m_refusedAt.reset();
    if (m_hindrance == LocationHindrance::refused) {
        m_hindrance = LocationHindrance::none;
    }
}

void LocationPermission::consentChanged() {
    forgetRefusal();
    m_changes.send();
}

} // namespace zeph
