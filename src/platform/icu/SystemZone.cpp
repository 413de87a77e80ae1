// SPDX-License-Identifier: MIT
#include "platform/icu/SystemZone.h"

#include "platform/icu/ZoneName.h"

#include <QDateTime>

#include <unicode/strenum.h>
#include <unicode/timezone.h>
#include <unicode/ucal.h>

#include <cstdlib>
#include <memory>
#include <system_error>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// The part of a zone file's path that names the zone, or nothing when it is no such path.
QString zoneOfPath(const QString &path) {
    const QString marker = u"/zoneinfo/"_s;
    const qsizetype found = path.lastIndexOf(marker);
    if (found < 0) {
        return {};
    }
    QString id = path.mid(found + marker.size());
    for (const QString &variant : {u"posix/"_s, u"right/"_s}) {
        if (id.startsWith(variant)) {
            id.remove(0, variant.size());
        }
    }
    return id;
}

QString toQString(const icu::UnicodeString &text) {
    return QStringView(text.getBuffer(), text.length()).toString();
}

/// True when `zone` and the C library agree on every half month of two years.
bool agreesWithCLibrary(const icu::TimeZone &zone) {
    constexpr qint64 halfMonth = 15LL * 86400;
    constexpr qint64 start2024 = 1'704'067'200;
    for (qint64 seconds = start2024; seconds < start2024 + 48 * halfMonth; seconds += halfMonth) {
        UErrorCode status = U_ZERO_ERROR;
        int32_t standard = 0;
        int32_t daylight = 0;
        zone.getOffset(static_cast<double>(seconds) * 1000.0, 0, standard, daylight, status);
        const int expected = QDateTime::fromSecsSinceEpoch(seconds).offsetFromUtc();
        if (U_FAILURE(status) != 0 || standard + daylight != expected * 1000) {
            return false;
        }
    }
    return true;
}

/// A zone by the C library's offsets, for a rule such as "CET-1CEST,M3.5.0,M10.5.0/3" in TZ.
QString zoneByOffsets() {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::StringEnumeration> zones(icu::TimeZone::createTimeZoneIDEnumeration(
        UCAL_ZONE_TYPE_CANONICAL_LOCATION, nullptr, nullptr, status));
    while (U_SUCCESS(status) != 0) {
        const icu::UnicodeString *const id = zones->snext(status);
        if (id == nullptr) {
            break;
        }
        const std::unique_ptr<icu::TimeZone> zone(icu::TimeZone::createTimeZone(*id));
        if (agreesWithCLibrary(*zone)) {
            return toQString(*id);
        }
    }
    const int minutes = QDateTime::currentDateTime().offsetFromUtc() / 60;
    return QString::asprintf("GMT%c%02d:%02d", minutes < 0 ? '-' : '+', std::abs(minutes) / 60,
                             std::abs(minutes) % 60);
}

/// The zone whose rules the machine's zone file holds, where the file is a copy and no link.
QString zoneByFile() {
    const std::unique_ptr<icu::TimeZone> host(icu::TimeZone::detectHostTimeZone());
    icu::UnicodeString name;
    const QString id = toQString(host->getID(name));
    return isKnownZone(id) ? id : zoneByOffsets();
}

} // namespace

SystemZone::SystemZone(std::filesystem::path localtime, MonotonicNow now)
    : m_localtime(std::move(localtime)),
      m_now(std::move(now)),
      m_lastLook(m_now()),
      m_source(readSource()),
      m_id(resolve(m_source)) {}

bool SystemZone::refresh() {
    const auto now = m_now();
    if (now - m_lastLook < std::chrono::seconds(1)) {
        return false;
    }
    m_lastLook = now;
    Source source = readSource();
    if (source == m_source) {
        return false;
    }
    m_source = std::move(source);
    QString id = resolve(m_source);
    const bool changed = id != m_id;
    m_id = std::move(id);
    return changed;
}

SystemZone::Source SystemZone::readSource() const {
    Source source;
    source.hasVariable = qEnvironmentVariableIsSet("TZ");
    source.variable = qgetenv("TZ");
    std::error_code ignored; // a missing file leaves both empty
    source.target = std::filesystem::read_symlink(m_localtime, ignored);
    source.changed = std::filesystem::last_write_time(m_localtime, ignored);
    return source;
}

QString SystemZone::resolve(const Source &source) const {
    if (source.hasVariable) {
        QString value = QString::fromLocal8Bit(source.variable);
        if (value.startsWith(u':')) {
            value.remove(0, 1);
        }
        if (value.isEmpty()) {
            return u"Etc/UTC"_s;
        }
        const QString id = value.startsWith(u'/') ? zoneOfPath(value) : value;
        return isKnownZone(id) ? id : zoneByOffsets();
    }
    std::error_code ignored;
    const auto file = std::filesystem::canonical(m_localtime, ignored);
    // The link's own target first: a zone that is an alias keeps the name the user chose.
    for (const std::filesystem::path &path : {source.target, file}) {
        QString id = zoneOfPath(QString::fromStdString(path.string()));
        if (isKnownZone(id)) {
            return id;
        }
    }
    return zoneByFile();
}

} // namespace zeph
