// SPDX-License-Identifier: MIT
#include "adapters/places/ZoneCity.h"

#include "adapters/places/ZoneTable.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

// The tables have 20 KB; what is much longer is something else.
constexpr qint64 lengthLimit = 1 << 20;

QByteArray readTable(const QString &path) {
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        return {};
    }
    return file.read(lengthLimit);
}

/// `zone`, and the zone that it is only another name of, which is how the data's files are linked.
QStringList namesOf(const QString &zone, const QString &folder) {
    QStringList names{zone};
    const QString root = QFileInfo(folder).canonicalFilePath() + u'/';
    const QString file = QFileInfo(QDir(folder).filePath(zone)).canonicalFilePath();
    if (file.startsWith(root)) {
        names << file.mid(root.size());
    }
    return names;
}

} // namespace

std::optional<Coordinate> zoneCity(const QString &zone, const QString &folder) {
    // The newer table has one city for all countries whose clocks have agreed since 1970; the older
    // one has a city for each country, and so for names such as "Europe/Stockholm".
    const QByteArray newer = readTable(QDir(folder).filePath(u"zone1970.tab"_s));
    const QByteArray older = readTable(QDir(folder).filePath(u"zone.tab"_s));
    for (const QString &name : namesOf(zone, folder)) {
        for (const QByteArray &table : {newer, older}) {
            if (const auto city = principalCity(table, name.toUtf8())) {
                return city;
            }
        }
    }
    return std::nullopt;
}

} // namespace zeph
