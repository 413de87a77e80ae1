// SPDX-License-Identifier: MIT
#include "platform/linux/location/LocationPermission.h"

#include "platform/UserDefaults.h"
#include "platform/linux/Consent.h"

#include <utility>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

const QString key = u"zeph.consent.location"_s;

constexpr std::chrono::minutes refusalAge{1};

} // namespace

LocationPermission::LocationPermission(UserDefaults &defaults, MonotonicNow now)
    : m_defaults(defaults), m_now(std::move(now)) {}

LocationAuthorization LocationPermission::status() const {
    if (m_refusedAt) {
        return m_now() - *m_refusedAt < refusalAge ? LocationAuthorization::denied
                                                   : LocationAuthorization::notDetermined;
    }
    return static_cast<LocationAuthorization>(Consent(m_defaults, key).state());
}

void LocationPermission::grant() {
    m_refusedAt.reset();
    if (status() != LocationAuthorization::authorized) {
        m_defaults.set(key, static_cast<double>(LocationAuthorization::authorized));
    }
}

void LocationPermission::refuse() {
    m_refusedAt = m_now();
}

} // namespace zeph
