// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/eds/plugin/GLibHandles.h"

#include <QByteArray>

namespace zeph {

/// The zone in which floating times and whole days are.
class LocalZone {
public:
    /// UTC.
    LocalZone();

    /// The zone of a name such as "Europe/Berlin", or a fixed offset such as "GMT+05:30". What is
    /// neither counts as UTC.
    explicit LocalZone(const QByteArray &name);

    ICalTimezone *get() const { return m_zone; }

private:
    GLibPtr<ICalTimezone> m_offset; // the library keeps no zones for offsets
    ICalTimezone *m_zone;
};

} // namespace zeph
