// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/calendar/plugin/GLibHandles.h"

#include <QByteArray>

namespace zeph {

/// The zone in which floating times and whole days are.
class LocalZone {
public:
    /// UTC.
    LocalZone();

    /// The zone of a name such as "Europe/Berlin", an offset such as "UTC+05:30" or a rule such as
    /// "CET-1CEST,M3.5.0,M10.5.0/3", by the system's time zone data. What is neither counts as UTC.
    explicit LocalZone(const QByteArray &name);

    ICalTimezone *get() const { return m_zone; }

private:
    GLibPtr<ICalTimezone> m_own; // null for UTC
    ICalTimezone *m_zone;
};

} // namespace zeph
