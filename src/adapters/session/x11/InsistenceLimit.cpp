// SPDX-License-Identifier: MIT
#include "adapters/session/x11/InsistenceLimit.h"

#include <algorithm>
#include <utility>

namespace zeph {

namespace {

constexpr int kBurstMilliseconds = 2000;
constexpr int kLongestBurstMilliseconds = 64000;

} // namespace

InsistenceLimit::InsistenceLimit(std::function<void()> lookAgain)
    : m_lookAgain(std::move(lookAgain)) {
    m_burst.setSingleShot(true);
    m_burst.setInterval(kBurstMilliseconds);
    QObject::connect(&m_burst, &QTimer::timeout, &m_burst, [this] { endBurst(); });
}

bool InsistenceLimit::allows(int most) {
    if (!m_burst.isActive()) {
        m_burst.start();
        m_asked = 0;
        m_wasCutOff = false;
    }
    if (++m_asked > most) {
        m_wasCutOff = true;
        return false;
    }
    return true;
}

void InsistenceLimit::endBurst() {
    m_burst.setInterval(m_wasCutOff ? std::min(2 * m_burst.interval(), kLongestBurstMilliseconds)
                                    : kBurstMilliseconds);
    if (m_wasCutOff) {
        m_lookAgain();
    }
}

} // namespace zeph
