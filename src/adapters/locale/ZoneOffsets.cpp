// SPDX-License-Identifier: MIT
#include "adapters/locale/ZoneOffsets.h"

#include <QDateTime>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <limits>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr double kForever = std::numeric_limits<double>::infinity();
constexpr double kLargestOffset = 26 * 3'600'000.0;
// Beyond what any clock shows, and well within what the toolkit can compute.
constexpr double kLargestInstant = 8.64e15;

QDateTime universal(double milliseconds) {
    const double bounded = std::clamp(milliseconds, -kLargestInstant, kLargestInstant);
    return QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(std::floor(bounded)), Qt::UTC);
}

double millisecondsOr(const QTimeZone::OffsetData &transition, double none) {
    return transition.atUtc.isValid() ? static_cast<double>(transition.atUtc.toMSecsSinceEpoch())
                                      : none;
}

} // namespace

ZoneOffsets::ZoneOffsets(const QString &zone)
    : m_zone(zone.isEmpty() ? QTimeZone::utc() : QTimeZone(zone.toUtf8())) {
    if (!m_zone.isValid()) {
        m_zone = QTimeZone::utc();
    }
}

double ZoneOffsets::wallTime(double instant) const {
    return std::isfinite(instant) ? instant + spanAt(instant).offset : instant;
}

double ZoneOffsets::instant(double wallTime) const {
    // A span that can't lie after the wall time, and from there on to the first that reaches it.
    Span span = spanAt(wallTime - kLargestOffset);
    while (wallTime - span.offset >= span.end) {
        span = spanAt(span.end);
    }
    return std::max(wallTime - span.offset, span.start);
}

double ZoneOffsets::instant(double wallTime, double near) const {
    const double offset = spanAt(near).offset;
    const double same = wallTime - offset;
    return spanAt(same).offset == offset ? same : instant(wallTime);
}

const ZoneOffsets::Span &ZoneOffsets::spanAt(double instant) const {
    if (instant >= m_span.start && instant < m_span.end) {
        return m_span;
    }
    const QDateTime date = universal(instant);
    m_span.offset = m_zone.offsetFromUtc(date) * 1000.0;
    m_span.start = millisecondsOr(m_zone.previousTransition(date.addMSecs(1)), -kForever);
    m_span.end = millisecondsOr(m_zone.nextTransition(date), kForever);
    if (m_span.end > kLargestInstant) {
        m_span.end = kForever; // what lies beyond is looked up at the largest instant again
    }
    return m_span;
}

bool isKnownZone(const QString &name) {
    if (QTimeZone::isTimeZoneIdAvailable(name.toUtf8())) {
        return true;
    }
    // The toolkit lists no aliases, such as "US/Eastern".
    static const QRegularExpression form(u"\\A[A-Za-z][\\w+-]*(/[\\w+-]+)*\\z"_s);
    return form.match(name).hasMatch() && QFileInfo(u"/usr/share/zoneinfo/"_s + name).isFile() &&
           QTimeZone(name.toUtf8()).isValid();
}

} // namespace zeph
