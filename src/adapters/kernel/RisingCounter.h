// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

namespace zeph {

/// Keeps a counter from going back. The kernel's idle and waiting times now and then fall by a
/// tick, which a reader that allows for wrap-around would take for 2^32 ticks.
class RisingCounter {
public:
    /// The counter for the reading `raw`: it grows as the readings grow and stands when they fall.
    quint64 next(quint64 raw) {
        if (raw < m_lastRaw) {
            m_lost += m_lastRaw - raw;
        }
        m_lastRaw = raw;
        return raw + m_lost;
    }

private:
    quint64 m_lastRaw = 0;
    quint64 m_lost = 0;
};

} // namespace zeph
