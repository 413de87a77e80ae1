// SPDX-License-Identifier: MIT
#include "adapters/session/plasma/PlasmaScripts.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// Plasma's own, where nothing else is known.
const QString kUsualWallpaper = u"org.kde.image"_s;

const QString kPrinting = uR"(
print(JSON.stringify(desktops().map(function (one) {
    return {id: one.id, wallpaper: one.wallpaperPlugin};
})));
)"_s;

/// As it stands in a script, whatever is in it.
QString quoted(const QString &text) {
    const QString list =
        QString::fromUtf8(QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact));
    return list.mid(1, list.size() - 2);
}

QJsonObject asObject(const PlasmaWallpapers &wallpapers) {
    QJsonObject object;
    for (const auto &[number, wallpaper] : wallpapers) {
        object.insert(QString::number(number), wallpaper);
    }
    return object;
}

QString compact(const QJsonDocument &document) {
    return QString::fromUtf8(document.toJson(QJsonDocument::Compact));
}

} // namespace

QString tellDesktopsScript() {
    return kPrinting;
}

QString putInScript(const std::vector<int> &numbers, const PlasmaPictures &pictures) {
    QJsonArray list;
    for (const int number : numbers) {
        list.append(number);
    }
    // It finds its folder set when it begins.
    return uR"(
var numbers = %1;
desktops().forEach(function (one) {
    var isNew = numbers.indexOf(one.id) >= 0;
    if (!isNew && one.wallpaperPlugin !== %2) return;
    one.currentConfigGroup = ['Wallpaper', %2, 'General'];
    one.writeConfig('Folder', %3);
    one.writeConfig('Kept', %4);
    one.writeConfig('Start', %5);
    if (isNew) one.wallpaperPlugin = %2;
    one.reloadConfig();
});
)"_s.arg(compact(QJsonDocument(list)), quoted(plasmaPackageId), quoted(pictures.folder),
           quoted(pictures.kept), quoted(pictures.start)) +
           kPrinting;
}

QString putBackScript(const PlasmaWallpapers &earlier) {
    return uR"(
var earlier = %1;
desktops().forEach(function (one) {
    if (one.wallpaperPlugin === %2) one.wallpaperPlugin = earlier[one.id] || %3;
});
)"_s.arg(compact(QJsonDocument(asObject(earlier))), quoted(plasmaPackageId),
           quoted(kUsualWallpaper)) +
           kPrinting;
}

std::optional<std::vector<PlasmaDesktop>> desktopsIn(const QString &printed) {
    const QJsonDocument document = QJsonDocument::fromJson(printed.trimmed().toUtf8());
    if (!document.isArray()) {
        return std::nullopt;
    }
    std::vector<PlasmaDesktop> desktops;
    const QJsonArray list = document.array();
    for (const QJsonValue one : list) {
        if (!one[u"id"_s].isDouble() || !one[u"wallpaper"_s].isString()) {
            return std::nullopt;
        }
        desktops.push_back({one[u"id"_s].toInt(), one[u"wallpaper"_s].toString()});
    }
    return desktops;
}

QString keptWallpapers(const PlasmaWallpapers &wallpapers) {
    return compact(QJsonDocument(asObject(wallpapers)));
}

PlasmaWallpapers wallpapersIn(const QString &kept) {
    PlasmaWallpapers wallpapers;
    const QJsonObject object = QJsonDocument::fromJson(kept.toUtf8()).object();
    for (auto one = object.begin(); one != object.end(); ++one) {
        bool isNumber = false;
        const int number = one.key().toInt(&isNumber);
        if (isNumber && one->isString()) {
            wallpapers[number] = one->toString();
        }
    }
    return wallpapers;
}

} // namespace zeph
