// SPDX-License-Identifier: MIT
#include "adapters/calendar/plugin/LocalZone.h"

#include <QDateTime>
#include <QTimeZone>

#include <cstdlib>

namespace zeph {

namespace {

QByteArray offsetText(int seconds) {
    const int length = std::abs(seconds);
    return QString::asprintf("%c%02d%02d%02d", seconds < 0 ? '-' : '+', length / 3600,
                             length / 60 % 60, length % 60)
        .toLatin1();
}

/// One change of the clocks, at a local time by the offset before.
QByteArray changeText(const QDateTime &localTime, int before, int after) {
    return "BEGIN:STANDARD\r\nDTSTART:" + localTime.toString(u"yyyyMMdd'T'HHmmss").toLatin1() +
           "\r\nTZOFFSETFROM:" + offsetText(before) + "\r\nTZOFFSETTO:" + offsetText(after) +
           "\r\nEND:STANDARD\r\n";
}

/// The changes of a zone from 1970 to 2100. The calendar library's own reading of the system's
/// data keeps only a rule that it guesses from the last changes.
QByteArray changesOf(const QTimeZone &zone) {
    const QDateTime start(QDate(1970, 1, 1), QTime(0, 0), Qt::UTC);
    int offset = zone.offsetFromUtc(start);
    QByteArray text = changeText(start, offset, offset);
    const auto transitions = zone.transitions(start.addSecs(1), start.addYears(130));
    for (const QTimeZone::OffsetData &transition : transitions) {
        text += changeText(transition.atUtc.addSecs(offset), offset, transition.offsetFromUtc);
        offset = transition.offsetFromUtc;
    }
    return text;
}

GLibPtr<ICalTimezone> zoneOf(const QByteArray &name) {
    const QTimeZone zone = name.isEmpty() ? QTimeZone::utc() : QTimeZone(name);
    if (!zone.isValid() || zone == QTimeZone::utc()) {
        return nullptr;
    }
    const GLibPtr<ICalComponent> rules(i_cal_component_new_from_string(
        ("BEGIN:VTIMEZONE\r\nTZID:local\r\n" + changesOf(zone) + "END:VTIMEZONE\r\n").constData()));
    GLibPtr<ICalTimezone> made(i_cal_timezone_new());
    const bool isSet = rules && i_cal_timezone_set_component(made.get(), rules.get()) != FALSE;
    return isSet ? std::move(made) : nullptr;
}

} // namespace

LocalZone::LocalZone() : m_zone(i_cal_timezone_get_utc_timezone()) {}

LocalZone::LocalZone(const QByteArray &name)
    : m_own(zoneOf(name)), m_zone(m_own ? m_own.get() : i_cal_timezone_get_utc_timezone()) {}

} // namespace zeph
