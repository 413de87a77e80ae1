// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/locale/SystemZone.h"
#include "adapters/locale/ZoneOffsets.h"

#include <optional>

namespace zeph {

/// The offsets of a zone given by name or, for an empty name, of the machine's zone, followed
/// when it changes. Not safe for use by two threads at once.
class UserZone {
public:
    explicit UserZone(const QString &zone);

    const ZoneOffsets &current();

private:
    std::optional<SystemZone> m_system; // absent for a zone given by name
    ZoneOffsets m_offsets;
};

} // namespace zeph
