// SPDX-License-Identifier: MIT
#include "adapters/locale/UserZone.h"

namespace zeph {

UserZone::UserZone(const QString &zone)
    : m_system(zone.isEmpty() ? std::optional<SystemZone>(std::in_place) : std::nullopt),
      m_offsets(m_system ? m_system->id() : zone) {}

const ZoneOffsets &UserZone::current() {
    if (m_system && m_system->refresh()) {
        m_offsets = ZoneOffsets(m_system->id());
    }
    return m_offsets;
}

} // namespace zeph
