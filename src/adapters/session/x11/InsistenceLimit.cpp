// SPDX-License-Identifier: MIT
#include "adapters/session/x11/InsistenceLimit.h"

#include "adapters/session/x11/InsistenceBurst.h"

#include <utility>

namespace zeph {

InsistenceLimit::InsistenceLimit(std::function<void()> lookAgain, std::chrono::milliseconds burst)
    : m_lookAgain(std::move(lookAgain)), m_shortest(burst) {
    m_burst.setSingleShot(true);
    m_burst.setInterval(m_shortest);
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
    m_burst.setInterval(nextBurst(m_burst.intervalAsDuration(), m_shortest, m_wasCutOff));
    if (m_wasCutOff) {
        m_lookAgain();
    }
}

} // namespace zeph
