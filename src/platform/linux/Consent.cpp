// SPDX-License-Identifier: MIT
#include "platform/linux/Consent.h"

#include "platform/UserDefaults.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

Consent::Consent(const UserDefaults &defaults, QString key)
    : m_defaults(defaults), m_key(std::move(key)) {}

Consent Consent::forInput(const UserDefaults &defaults) {
    return {defaults, u"zeph.consent.input"_s};
}

Consent Consent::forCalendar(const UserDefaults &defaults) {
    return {defaults, u"zeph.consent.calendar"_s};
}

Consent Consent::forReminders(const UserDefaults &defaults) {
    return {defaults, u"zeph.consent.reminders"_s};
}

int Consent::state() const {
    const double stored = m_defaults.get<double>(m_key).value_or(0);
    for (const int state : {1, 2, 3}) {
        if (stored == state) {
            return state;
        }
    }
    return 0;
}

} // namespace zeph
