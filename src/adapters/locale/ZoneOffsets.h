// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QTimeZone>

namespace zeph {

/// How far the clocks of one time zone are from universal time, by the system's own time zone
/// data, which is updated more often than the locale library's. Instants and wall times are
/// milliseconds since 1970. Not safe for use by two threads at once.
class ZoneOffsets {
public:
    /// `zone` is a name such as "Europe/Berlin", an offset such as "UTC+05:30" or a rule such as
    /// "CET-1CEST,M3.5.0,M10.5.0/3"; anything else counts as universal time.
    explicit ZoneOffsets(const QString &zone);

    /// The wall time at an instant.
    double wallTime(double instant) const;

    /// The instant at which the clocks show `wallTime`: the earlier one of two, and the first
    /// moment after the gap for a wall time that is left out.
    double instant(double wallTime) const;

    /// The same, except that of two instants the one wins that has the offset of `near`.
    double instant(double wallTime, double near) const;

private:
    /// A time over which the offset does not change.
    struct Span {
        double start = 0;
        double end = 0;
        double offset = 0;
    };

    const Span &spanAt(double instant) const;

    QTimeZone m_zone;
    mutable Span m_span; // the last one asked for: nearly all questions are about these months
};

/// Whether the system's data has a time zone of that name. Any text is safe.
bool isKnownZone(const QString &name);

} // namespace zeph
