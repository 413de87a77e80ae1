// SPDX-License-Identifier: MIT
#include "adapters/locale/SystemZone.h"

#include "adapters/locale/ZoneOffsets.h"

#include <QDateTime>

#include <unicode/timezone.h>

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

/// What the variable TZ says, without the colon that may stand before it.
QString valueOf(const QByteArray &variable) {
    QString value = QString::fromLocal8Bit(variable);
    if (value.startsWith(u':')) {
        value.remove(0, 1);
    }
    return value;
}

QString toQString(const icu::UnicodeString &text) {
    return QStringView(text.getBuffer(), text.length()).toString();
}

/// The present offset of the C library as a zone of its own.
QString zoneByOffset() {
    const int minutes = QDateTime::currentDateTime().offsetFromUtc() / 60;
    return QString::asprintf("UTC%c%02d:%02d", minutes < 0 ? '-' : '+', std::abs(minutes) / 60,
                             std::abs(minutes) % 60);
}

/// The zone whose rules the machine's zone file holds, where the file is a copy and no link.
QString zoneByFile() {
    const std::unique_ptr<icu::TimeZone> host(icu::TimeZone::detectHostTimeZone());
    icu::UnicodeString name;
    const QString id = toQString(host->getID(name));
    return isKnownZone(id) ? id : zoneByOffset();
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
    const QString value = valueOf(source.variable);
    source.file = value.startsWith(u'/') ? std::filesystem::path(value.toStdString()) : m_localtime;
    std::error_code ignored; // a missing file leaves both empty
    source.target = std::filesystem::read_symlink(source.file, ignored);
    source.changed = std::filesystem::last_write_time(source.file, ignored);
    return source;
}

QString SystemZone::resolve(const Source &source) const {
    const QString value = valueOf(source.variable);
    if (source.hasVariable && !value.startsWith(u'/')) {
        // A name or a rule; what is neither counts as UTC, as in the C library.
        return value.isEmpty() ? u"Etc/UTC"_s : value;
    }
    std::error_code ignored;
    const auto real = std::filesystem::canonical(source.file, ignored);
    // The link's own target first: a zone that is an alias keeps the name the user chose.
    for (const std::filesystem::path &path : {source.file, source.target, real}) {
        QString id = zoneOfPath(QString::fromStdString(path.string()));
        if (isKnownZone(id)) {
            return id;
        }
    }
    return zoneByFile();
}

} // namespace zeph
