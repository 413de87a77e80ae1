// SPDX-License-Identifier: MIT
#include "adapters/updates/PackageProblem.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr qsizetype longestDetail = 160;

/// The first line of what the service says, as the end of a sentence.
QString withDetail(const QString &details) {
    QString line = details.trimmed().section(u'\n', 0, 0).simplified();
    if (line.size() > longestDetail) {
        line = line.first(longestDetail - 1).trimmed() + u'…';
    }
    while (line.endsWith(u'.')) {
        line.chop(1);
    }
    return line.isEmpty() ? u"Your system's package service failed."_s
                          : u"Your system's package service failed: %1."_s.arg(line);
}

} // namespace

QString packageProblem(uint code, const QString &details) {
    switch (code) { // the numbers are the service's
    case 2:
        return u"There is no network to get packages by."_s;
    case 5:
    case 30:
    case 31:
    case 50:
    case 51:
        return u"The newer version is not signed by anybody whom your system trusts."_s;
    case 8:
    case 27:
    case 49:
        return u"The newer version is no longer offered."_s;
    case 10:
    case 37:
    case 43:
    case 64:
        return u"The place that packages come from can't be reached."_s;
    case 13:
    case 35:
    case 36:
        return u"The newer version does not get along with other software on your computer."_s;
    case 26:
    case 67:
        return u"Other software is being installed right now."_s;
    case 46:
        return u"There is not enough room on the disk."_s;
    default:
        return withDetail(details);
    }
}

} // namespace zeph
