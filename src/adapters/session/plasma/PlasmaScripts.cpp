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

/// What a desktop shows: its wallpaper and, where that has a picture or a colour of the user's,
/// that. Others change theirs by themselves.
const QString kTelling = uR"(
function shownBy(one) {
    var own = {'org.kde.image': 'Image', 'org.kde.color': 'Color'}[one.wallpaperPlugin];
    one.currentConfigGroup = ['Wallpaper', one.wallpaperPlugin, 'General'];
    return [one.wallpaperPlugin, own ? String(one.readConfig(own, '')) : ''];
}
function returned(one) {
    one.currentConfigGroup = ['Wallpaper', 'com.tavi.Tavi', 'General'];
    return String(one.readConfig('Returned', ''));
}
)"_s;

// A wallpaper that had no picture of its own when it came back may have chosen one since.
const QString kPrinting = kTelling + uR"(
print(JSON.stringify(desktops().map(function (one) {
    var shown = shownBy(one), mark = returned(one);
    return {id: one.id, wallpaper: one.wallpaperPlugin,
            isReturned: mark === shown.join(' ') || mark === shown[0] + ' '};
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

/// `mark` is what is done with each desktop that has its earlier one again.
QString backScript(const PlasmaWallpapers &earlier, const QString &mark) {
    return uR"(
var earlier = %1;
desktops().forEach(function (one) {
    if (one.wallpaperPlugin !== %2) return;
    one.wallpaperPlugin = earlier[one.id] || %3;
%4});
)"_s.arg(compact(QJsonDocument(asObject(earlier))), quoted(plasmaPackageId),
           quoted(kUsualWallpaper), mark) +
           kPrinting;
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
    if (returned(one)) one.writeConfig('Returned', '');
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
    return backScript(earlier, {});
}

QString returnScript(const PlasmaWallpapers &earlier) {
    return backScript(earlier, uR"(
    var shown = shownBy(one).join(' ');
    if (returned(one) !== shown) one.writeConfig('Returned', shown);
)"_s);
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
        desktops.push_back(
            {one[u"id"_s].toInt(), one[u"wallpaper"_s].toString(), one[u"isReturned"_s].toBool()});
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
