// SPDX-License-Identifier: MIT
#include "platform/linux/eds/plugin/LocalZone.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// The zone of a name such as "GMT+05:30"; null for any other.
GLibPtr<ICalTimezone> zoneOfOffset(const QByteArray &name) {
    static const QRegularExpression form(u"\\AGMT([+-])([0-9]{2}):([0-9]{2})\\z"_s);
    const auto match = form.match(QString::fromLatin1(name));
    if (!match.hasMatch()) {
        return nullptr;
    }
    const QByteArray offset =
        (match.captured(1) + match.captured(2) + match.captured(3)).toLatin1();
    const QByteArray text =
        "BEGIN:VTIMEZONE\r\nTZID:" + name +
        "\r\nBEGIN:STANDARD\r\nDTSTART:19700101T000000\r\nTZOFFSETFROM:" + offset +
        "\r\nTZOFFSETTO:" + offset + "\r\nEND:STANDARD\r\nEND:VTIMEZONE\r\n";
    const GLibPtr<ICalComponent> rules(i_cal_component_new_from_string(text.constData()));
    GLibPtr<ICalTimezone> zone(i_cal_timezone_new());
    const bool isSet = rules && i_cal_timezone_set_component(zone.get(), rules.get()) != FALSE;
    return isSet ? std::move(zone) : nullptr;
}

} // namespace

LocalZone::LocalZone() : m_zone(i_cal_timezone_get_utc_timezone()) {}

LocalZone::LocalZone(const QByteArray &name) : m_offset(zoneOfOffset(name)) {
    m_zone = m_offset ? m_offset.get() : i_cal_timezone_get_builtin_timezone(name.constData());
    if (m_zone == nullptr) {
        m_zone = i_cal_timezone_get_utc_timezone();
    }
}

} // namespace zeph
