// SPDX-License-Identifier: MIT
#include "platform/linux/Consent.h"

#include "platform/UserDefaults.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr double kGranted = 3;

} // namespace

Consent::Consent(const UserDefaults &defaults, QString key)
    : m_defaults(defaults), m_key(std::move(key)) {}

Consent Consent::forInput(const UserDefaults &defaults) {
    return {defaults, u"zeph.consent.input"_s};
}

bool Consent::isGranted() const {
    return m_defaults.get<double>(m_key) == kGranted;
}

} // namespace zeph
